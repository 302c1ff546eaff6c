#pragma once

/// Paths and what stands under them. Every operation may throw `QVErrno`.

#include "runtime/base/CString.h"

class QVPath {
public:
    /// Non-zero when a file or directory of that name exists, with or without "\" at its end. A path that is
    /// refused is an error, not "not there".
    static int mf_exists(const CString& path);

    /// The full path of `path`, "." and ".." resolved; nothing need exist there.
    static const CString mf_getAbsolutePath(const CString& path);

    /// `directory` and `file` joined by exactly one "\"; `file` alone when the directory is empty.
    static const CString mf_appendFile(const CString& directory, const CString& file);

    /// `directory` and `subdirectory` joined by exactly one "\"; the result ends with "\".
    static const CString mf_appendDirectory(const CString& directory, const CString& subdirectory);

    /// Non-zero for a path that says by itself where it begins: "X:\..." or "\\...".
    static int mf_isAbsolutePathName(const CString& path);
};
