#pragma once

/// Sizes in bytes as people read them.

#include <cstdint>

#include "runtime/base/CString.h"

/// "500 MB", "1.5 TB", "17 bytes": the largest unit (KB, MB, GB, TB, each 1024 of the one before) of which
/// there is at least one, with one decimal, cut off, unless it is whole.
CString sizeText(std::uint64_t bytes);

/// "500 MB (524288000 bytes)"; below 1 KB just "17 bytes".
CString exactSizeText(std::uint64_t bytes);
