#pragma once

#include "runtime/base/CString.h"

/// The count in at least three columns.
inline CString padded(int count) {
    CString text = formatted(L"%d", count);
    while (text.GetLength() < 3)
        text.Format(L" %s", text);
    return text;
}
