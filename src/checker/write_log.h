#pragma once

/// How the program logs: in the language of the log, always.

#include "runtime/base/QVErrno.h"
#include "runtime/base/QVLog.h"
#include "runtime/base/QVThreadContext.h"

namespace detail {

template <class Insert>
const Insert& logged(const Insert& insert) {
    return insert;
}

inline CString logged(const QVErrno& error) {
    return error.mf_toString();
}

}  // namespace detail

/// One record of the trace log. `originator` is the full name of the function that writes it. An error stands
/// for its text, which is taken after the language was set.
template <class... Inserts>
void writeLog(const QVLogData& level, const wchar_t* originator, const wchar_t* format,
              const Inserts&... inserts) noexcept {
    QVThreadContext::mf_setLoggingLanguage();
    QVLog::mf_writeMessage(level, originator, format, detail::logged(inserts)...);
}
