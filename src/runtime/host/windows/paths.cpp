#include "runtime/host/windows/paths.h"

namespace host::windows {

FilledText fullPath(const std::wstring& path) {
    return fillTextByLength(
        [&](wchar_t* units, DWORD size) { return GetFullPathNameW(path.c_str(), size, units, nullptr); });
}

std::wstring withoutLimit(const std::wstring& path) {
    // A directory's name must leave room for a short file name in it.
    constexpr std::size_t limit = MAX_PATH - 12;
    if (path.size() < limit || path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\")) return path;
    const FilledText full = fullPath(path);
    if (full.code != ERROR_SUCCESS) return path;
    if (full.text.starts_with(L"\\\\")) return L"\\\\?\\UNC\\" + full.text.substr(2);
    return L"\\\\?\\" + full.text;
}

FilledText systemWindowsDirectory() {
    return fillTextByLength(
        [](wchar_t* units, DWORD size) { return GetSystemWindowsDirectoryW(units, size); });
}

}  // namespace host::windows
