#include "runtime/util/QVCmdline.h"

#include <algorithm>

#include "runtime/base/operation.h"

QVCmdline::QVCmdline(int argc, wchar_t* const* argv) {
    if (operation::answersZero(L"QVCmdline::QVCmdline")) return;
    for (int i = 1; i < argc; ++i)
        m_arguments.emplace_back(argv[i]);
}

int QVCmdline::mf_getSize() const {
    if (operation::answersZero(L"QVCmdline::mf_getSize")) return 0;
    return static_cast<int>(m_arguments.size());
}

int QVCmdline::mf_getArgument(const CString& name, int remove) {
    if (operation::answersZero(L"QVCmdline::mf_getArgument", name)) return 0;
    const auto found = std::find(m_arguments.begin(), m_arguments.end(), name);
    if (found == m_arguments.end()) return 0;
    if (remove != 0) m_arguments.erase(found);
    return 1;
}

int QVCmdline::mf_getArgument(int index, CString& out, int remove) {
    if (operation::answersZero(L"QVCmdline::mf_getArgument", index)) return 0;
    if (index < 0 || static_cast<std::size_t>(index) >= m_arguments.size()) return 0;
    const auto at = m_arguments.begin() + index;
    out = *at;
    if (remove != 0) m_arguments.erase(at);
    return 1;
}
