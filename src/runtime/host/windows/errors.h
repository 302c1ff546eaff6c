#pragma once

/// Error codes of the system as answers of the seam.

#include "runtime/host/answer.h"
#include "runtime/host/os.h"
#include "runtime/host/refusals.h"

namespace host::windows {

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
