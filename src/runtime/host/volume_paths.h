#pragma once

/// Where volumes are mounted, and in which order they are listed: the same on every host.

#include <string>
#include <vector>

#include "runtime/host/facts.h"

namespace host {

/// Gives the volume its letter and its folders, from all paths at which it is mounted ("C:\",
/// "C:\mnt\data\"), in any order. A drive beyond the first stands among the folders.
void mountAt(std::vector<std::wstring> paths, VolumeFacts& volume);

/// Lettered volumes by letter, then those in folders only by the first of them, then the rest by device.
bool standsBefore(const VolumeFacts& left, const VolumeFacts& right);

}  // namespace host
