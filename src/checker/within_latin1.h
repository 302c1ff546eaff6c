#pragma once

#include "runtime/base/CString.h"

/// The text with one "?" for each character above U+00FF. The C run time's wide output, without a locale,
/// would stop at such a character and lose the rest of the text.
CString withinLatin1(const CString& text);
