#pragma once

/// How an operation of the runtime begins.

#include "runtime/base/CString.h"

namespace operation {

/// Whether anybody wants to know of operations: the trace log at level T, or a described machine with failures
/// planned. Set by the log and at first use; everything else costs one branch.
inline bool observed = true;

namespace detail {
bool beginObserved(const wchar_t* name, const CString& subject, const CString& detail);
}

/// The first line of every operation: `if (operation::answersZero(L"QVRegistry::mf_exists", keyPath, valueName)) return 0;`
/// Writes the record of level T (originator `name`, text the subject) and lets the described machine decide: true when
/// the operation is to answer 0 (nothing, an empty text) at once. The subject is `subject`, or "subject\detail" where
/// there is a detail. Throws what the machine has planned: a `QVErrno`, or an exception of another type.
inline bool answersZero(const wchar_t* name, const CString& subject = {}, const CString& detail = {}) {
    return observed && detail::beginObserved(name, subject, detail);
}

}  // namespace operation
