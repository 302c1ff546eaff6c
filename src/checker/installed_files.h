#pragma once

#include "runtime/base/CString.h"

/// One file that a correct installation contains.
struct InstalledFile {
    CString name;    ///< relative to the installation directory (and perhaps climbing out of it), or absolute
    int exists = 0;  ///< set by each check: 1 found; 0 missing, or its existence could not be determined
};

/// A count of such files in at least three columns.
inline CString padded(int count) {
    CString text = formatted(L"%d", count);
    while (text.GetLength() < 3)
        text.Format(L" %s", text);
    return text;
}
