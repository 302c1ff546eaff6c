#pragma once

/// Path names as the system takes them.

#include <string>

#include "runtime/host/windows/buffer.h"

namespace host::windows {

/// The full path with "." and ".." resolved, or why there is none.
FilledText fullPath(const std::wstring& path);

/// `path` as calls take it whatever its length: a long one in the form that has no limit.
std::wstring withoutLimit(const std::wstring& path);

/// The directory of Windows itself, the same for all users, without "\" at its end.
FilledText systemWindowsDirectory();

}  // namespace host::windows
