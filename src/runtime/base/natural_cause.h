#pragma once

/// How the runtime answers when the machine itself is the cause: a controller out of reach, a refused query.

#include "runtime/base/CString.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVLog.h"
#include "runtime/base/system_error.h"
#include "runtime/host/answer.h"

/// `what` and the reason of an answer without value, in one line, as an error's text would have it.
template <class Value>
CString reasonText(const host::Answer<Value>& answer, const CString& what) {
    try {
        raise(answer.failure, what);
    } catch (QVErrno& error) {
        return error.mf_toString();
    }
}

/// What stands for a fact that cannot be learnt: "unknown, system error 21: The device is not ready."
template <class Value>
CString unknownFact(const host::Answer<Value>& answer, const CString& unknown = L"unknown") {
    CString text = unknown;
    const host::Failure& failure = answer.failure;
    if (!failure.text.empty()) text += formatted(L": %s", failure.text.c_str());
    return text + CString(systemErrorPhrase(failure.code));
}

/// Records at level W why an operation answers "failed" instead of throwing: the report shows that there is
/// no answer, the log keeps the reason.
template <class Value>
void logNaturalCause(const wchar_t* operationName, const host::Answer<Value>& answer, const CString& what) {
    QVLog::mf_writeMessage(QVLogData::LEVEL_W, operationName, L"%s", reasonText(answer, what));
}
