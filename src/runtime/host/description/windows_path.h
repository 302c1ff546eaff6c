#pragma once

/// Windows path names, resolved as Windows does it.

#include <string>
#include <string_view>

namespace description {

/// The path up to its first NUL, where it ends on its way to the system.
std::wstring untilNul(const std::wstring& path);

/// Whether the path names its place whatever the current directory is: "X:\", "\\server", "\", and "X:name",
/// which counts from a directory of the described machine. All of these are answered by the description.
bool isDescribedPath(std::wstring_view path);

/// The full path: "/" becomes "\", "." and ".." are resolved, never above the root; a "\" at the end is kept.
std::wstring fullPath(std::wstring_view path, std::wstring_view currentDirectory);

/// The form under which a description keeps a full path: folded, without "\" at the end. "C:\" becomes "c:".
std::wstring pathKey(std::wstring_view fullPath);

/// "C:", "\\server\share", or nothing for a path that begins at no root.
std::wstring_view rootOf(std::wstring_view path);

/// The key of the directory above; empty when there is none.
std::wstring parentKey(std::wstring_view key);

}  // namespace description
