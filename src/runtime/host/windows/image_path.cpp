#include "runtime/host/windows/image_path.h"

#include <string_view>

#include "runtime/host/letter_case.h"
#include "runtime/host/text.h"

namespace host::windows {

namespace {

/// Takes `prefix` off the beginning of `path` when it stands there.
bool take(std::wstring_view prefix, std::wstring& path) {
    if (!equalIgnoringCase(std::wstring_view(path).substr(0, prefix.size()), prefix)) return false;
    path.erase(0, prefix.size());
    return true;
}

/// The image of a command line: what the quotes hold, or all up to the end of the first ".exe" or ".sys".
std::wstring withoutArguments(const std::wstring& command) {
    if (command.starts_with(L'"')) return command.substr(1, command.find(L'"', 1) - 1);
    for (std::size_t blank = command.find(L' '); blank != std::wstring::npos;
         blank = command.find(L' ', blank + 1)) {
        if (blank < 4) continue;
        const std::wstring_view ending = std::wstring_view(command).substr(blank - 4, 4);
        if (equalIgnoringCase(ending, L".exe") || equalIgnoringCase(ending, L".sys"))
            return command.substr(0, blank);
    }
    return command;
}

/// Where the kernel keeps its devices.
constexpr std::wstring_view device = L"\\Device\\";

bool isAbsolute(const std::wstring& path) {
    return path.starts_with(L"\\\\") || (path.size() > 1 && path[1] == L':');
}

}  // namespace

std::wstring imagePathFrom(const std::wstring& configured, const std::wstring& serviceName,
                           const std::wstring& windowsDirectory) {
    std::wstring path = withoutArguments(std::wstring(trimmed(configured, L" ")));
    if (path.empty()) return windowsDirectory + L"\\system32\\drivers\\" + serviceName + L".sys";
    const bool named = take(L"\\SystemRoot\\", path) || take(L"%SystemRoot%\\", path) ||
                       take(L"%windir%\\", path) || take(L"SystemRoot\\", path);
    if (named) return windowsDirectory + L"\\" + path;
    const bool underDosNames =
        take(L"\\??\\", path) || take(L"\\DosDevices\\", path) || take(L"\\GLOBAL??\\", path);
    if (underDosNames && take(L"UNC\\", path)) return L"\\\\" + path;
    if (underDosNames) return isAbsolute(path) ? path : L"\\\\?\\" + path;
    if (isAbsolute(path)) return path;
    if (equalIgnoringCase(std::wstring_view(path).substr(0, device.size()), device))
        return L"\\\\?\\GLOBALROOT" + path;
    if (path.starts_with(L'\\')) return windowsDirectory.substr(0, 2) + path;
    return windowsDirectory + L"\\" + path;
}

}  // namespace host::windows
