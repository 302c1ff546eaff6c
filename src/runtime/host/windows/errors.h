#pragma once

/// Error codes of the system as answers of the seam.

#include "runtime/host/answer.h"
#include "runtime/host/os.h"

namespace host::windows {

/// Whether a code says that the caller may not know or do it, as against a failure.
inline bool isRefusal(DWORD code) noexcept {
    switch (code) {
        case ERROR_ACCESS_DENIED:
        case ERROR_NETWORK_ACCESS_DENIED:
        case ERROR_ACCESS_DISABLED_BY_POLICY:
        case ERROR_PRIVILEGE_NOT_HELD:
        case ERROR_LOGON_FAILURE:
        case ERROR_ACCOUNT_RESTRICTION:
        case ERROR_INVALID_LOGON_HOURS:
        case ERROR_INVALID_WORKSTATION:
        case ERROR_PASSWORD_EXPIRED:
        case ERROR_ACCOUNT_DISABLED:
        case ERROR_LOGON_TYPE_NOT_GRANTED:
        case ERROR_PASSWORD_MUST_CHANGE:
        case ERROR_ACCOUNT_LOCKED_OUT: return true;
        default: return false;
    }
}

/// A question that the system did not answer.
template <class Value>
Answer<Value> unanswered(DWORD code) {
    return isRefusal(code) ? Answer<Value>::refused(code) : Answer<Value>::failed(code);
}

/// The same where "file not found" and "path not found" mean that the thing is not there.
template <class Value>
Answer<Value> missingOrUnanswered(DWORD code) {
    const bool missing = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
    return missing ? Answer<Value>::missing() : unanswered<Value>(code);
}

}  // namespace host::windows
