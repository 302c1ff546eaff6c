#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "orders.h"

#include <winioctl.h>

namespace {

/// What Wine's mount manager takes for a drive of the host system; offsets count from its beginning.
struct HostDrive {
    std::uint32_t size, type, fileSystem, serial;
    std::uint64_t hostDevice;
    wchar_t letter;
    std::uint16_t folder, device, label;
};

constexpr DWORD defineHostDrive = CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);

std::string toUtf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

/// Appends the path with its terminator; returns where it stands, 0 for an empty one.
std::uint16_t append(const std::wstring& path, std::vector<char>& request) {
    if (path.empty()) return 0;
    const auto at = static_cast<std::uint16_t>(request.size());
    const std::string narrow = toUtf8(path);
    request.insert(request.end(), narrow.begin(), narrow.end());
    request.push_back('\0');
    return at;
}

}  // namespace

DWORD defineDrive(const std::wstring& letter, unsigned long type, const std::wstring& folder,
                  const std::wstring& device) {
    const HANDLE manager =
        CreateFileW(L"\\\\.\\MountPointManager", GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (manager == INVALID_HANDLE_VALUE) return GetLastError();
    std::vector<char> request(sizeof(HostDrive));
    HostDrive drive{};
    drive.type = type;
    drive.letter = letter.at(0);
    drive.folder = append(folder, request);
    drive.device = append(device, request);
    drive.size = static_cast<std::uint32_t>(request.size());
    std::memcpy(request.data(), &drive, sizeof drive);
    DWORD answered = 0;
    const bool defined = DeviceIoControl(manager, defineHostDrive, request.data(), drive.size, nullptr, 0,
                                         &answered, nullptr) != 0;
    const DWORD code = defined ? ERROR_SUCCESS : GetLastError();
    CloseHandle(manager);
    return code;
}
