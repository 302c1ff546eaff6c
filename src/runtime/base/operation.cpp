#include "runtime/base/operation.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/QVLog.h"
#include "runtime/host/host.h"

namespace operation::detail {

bool isObserved(const wchar_t* name) {
    observed = host::verdictsArePlanned() || QVLog::traces();
    return observed && (QVLog::traces() || host::verdictsArePlanned(name));
}

CString subjectText(const CString& folder, const CString& name) {
    if (name.IsEmpty()) return folder;
    const bool ended = folder.IsEmpty() || folder.units().back() == L'\\';
    return folder + (ended ? L"" : L"\\") + name;
}

bool begin(const wchar_t* name, const CString& subject) {
    if (QVLog::traces()) QVLog::mf_writeMessage(QVLogData::LEVEL_T, name, L"%s", subject);
    const host::Verdict verdict = host::verdictOn(name, subject.units());
    switch (verdict.kind) {
        case host::Verdict::Kind::answerZero: return true;
        case host::Verdict::Kind::throwForeign: throw host::ForeignException();
        case host::Verdict::Kind::fail:
            raise(QVErrnoValue(verdict.category), CString(verdict.text), verdict.code);
        default: return false;
    }
}

}  // namespace operation::detail
