#include "runtime/base/operation.h"

#include <stdexcept>

#include "runtime/base/QVErrno.h"
#include "runtime/base/QVLog.h"
#include "runtime/host/host.h"

namespace {

/// An exception that is none of the program's own.
struct ForeignException : std::runtime_error {
    ForeignException() : std::runtime_error("foreign exception planned by the described machine") {}
};

}  // namespace

namespace operation::detail {

bool beginObserved(const wchar_t* name, const CString& subject, const CString& detail) {
    observed = host::verdictsArePlanned() || QVLog::traces();
    if (!observed) return false;
    CString whole = subject;
    if (!detail.IsEmpty()) {
        const bool ended = whole.IsEmpty() || whole.units().back() == L'\\';
        whole = whole + (ended ? L"" : L"\\") + detail;
    }
    if (QVLog::traces()) QVLog::mf_writeMessage(QVLogData::LEVEL_T, name, L"%s", whole);
    const host::Verdict verdict = host::verdictOn(name, whole.units());
    switch (verdict.kind) {
        case host::Verdict::Kind::proceed: return false;
        case host::Verdict::Kind::answerZero: return true;
        case host::Verdict::Kind::throwForeign: throw ForeignException();
        case host::Verdict::Kind::fail: break;
    }
    raise(QVErrnoValue(verdict.category), CString(verdict.text), verdict.code);
}

}  // namespace operation::detail
