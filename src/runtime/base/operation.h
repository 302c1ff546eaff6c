#pragma once

/// How an operation of the runtime begins.

#include <concepts>

#include "runtime/base/CString.h"

namespace operation {

/// Whether anybody wants to know of operations: the trace log at level T, or a described machine with
/// failures planned. Set by the log and at first use; everything else costs one branch.
inline bool observed = true;

namespace detail {

/// Whether this very operation is recorded, or can be given another verdict than to proceed.
bool isObserved(const wchar_t* name);

/// Records the operation and carries out what is planned for it; true: it is to answer 0.
bool begin(const wchar_t* name, const CString& subject);

inline CString subjectText() {
    return {};
}
inline CString subjectText(const CString& subject) {
    return subject;
}
inline CString subjectText(int number) {
    return formatted(L"%d", number);
}
template <std::invocable Make>
CString subjectText(const Make& make) {
    return make();
}
/// "folder\name"; without a name the folder as it is.
CString subjectText(const CString& folder, const CString& name);

}  // namespace detail

/// The first line of every operation:
///
///     if (operation::answersZero(L"QVRegistry::mf_exists", keyPath, valueName)) return 0;
///
/// Writes the record of level T (originator `name`, text the subject) and lets the described machine decide:
/// true when the operation is to answer 0 (nothing, an empty text) at once. Throws what the machine has
/// planned: a `QVErrno`, or `host::ForeignException`. The subject is nothing, a text, a number, a folder and
/// a name in it, or a function that makes the text; it is made only for an operation that somebody wants to
/// know of.
template <class... Subject>
inline bool answersZero(const wchar_t* name, const Subject&... subject) {
    return observed && detail::isObserved(name) && detail::begin(name, detail::subjectText(subject...));
}

}  // namespace operation
