#pragma once

/// Looks up absolute Windows paths in the description.

#include <string>

#include "runtime/host/description/machine.h"

namespace description {

/// What the description tells about a path. Without an entry and without a cause, nothing stands there.
struct LookedUp {
    std::wstring key;
    const FileEntry* entry = nullptr;
    Cause cause;  ///< of the path, of a directory above it, or of its volume
};

LookedUp lookUp(const Machine& machine, const std::wstring& path);

}  // namespace description
