#include <algorithm>
#include <cwctype>

#include "runtime/host/host.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/handle.h"

namespace host {

namespace {

constexpr std::size_t longestVolumeName = 64;

/// The names of all volumes; `code` tells how the list ended.
struct VolumeNames {
    DWORD code = ERROR_SUCCESS;
    std::vector<std::wstring> names;
};

VolumeNames volumeNames() {
    VolumeNames found;
    wchar_t name[longestVolumeName] = L"";
    const windows::FindVolumeHandle search(FindFirstVolumeW(name, longestVolumeName));
    for (bool more = static_cast<bool>(search); more;
         more = FindNextVolumeW(search.get(), name, longestVolumeName)) {
        found.names.emplace_back(name);
    }
    const DWORD code = GetLastError();
    if (code != ERROR_NO_MORE_FILES) found.code = code;
    return found;
}

/// The paths at which the volume is mounted: "C:\", "C:\mnt\data\".
std::vector<std::wstring> mountPaths(const std::wstring& device) {
    std::vector<wchar_t> list;
    const windows::Filled filled = windows::fill(list, [&](wchar_t* units, DWORD& size) -> DWORD {
        DWORD needed = 0;
        if (GetVolumePathNamesForVolumeNameW(device.c_str(), units, size, &needed)) return ERROR_SUCCESS;
        size = needed;
        return GetLastError();
    });
    std::vector<std::wstring> paths;
    if (filled.code != ERROR_SUCCESS) return paths;
    for (const wchar_t* path = list.data(); *path != L'\0'; path += paths.back().size() + 1)
        paths.emplace_back(path);
    return paths;
}

DriveType typeOf(const std::wstring& root) {
    switch (GetDriveTypeW(root.c_str())) {
        case DRIVE_FIXED: return DriveType::fixed;
        case DRIVE_REMOVABLE: return DriveType::removable;
        case DRIVE_REMOTE: return DriveType::network;
        case DRIVE_CDROM: return DriveType::optical;
        case DRIVE_RAMDISK: return DriveType::ramDisk;
        default: return DriveType::unknown;
    }
}

void mountAt(std::vector<std::wstring> paths, VolumeFacts& volume) {
    std::sort(paths.begin(), paths.end());
    for (std::wstring& path : paths) {
        const bool isDrive = path.size() == 3 && path[1] == L':';
        if (isDrive && !volume.letter) {
            volume.letter = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(path[0])));
            continue;
        }
        volume.folders.push_back(std::move(path));
    }
}

void readFileSystem(VolumeFacts& volume) {
    wchar_t label[MAX_PATH + 1] = L"";
    wchar_t fileSystem[MAX_PATH + 1] = L"";
    const bool read = GetVolumeInformationW(volume.device.c_str(), label, MAX_PATH + 1, nullptr, nullptr,
                                            nullptr, fileSystem, MAX_PATH + 1) != 0;
    const DWORD code = read ? ERROR_SUCCESS : GetLastError();
    volume.label = read ? Answer<std::wstring>(label) : windows::unanswered<std::wstring>(code);
    volume.fileSystem = read ? Answer<std::wstring>(fileSystem) : windows::unanswered<std::wstring>(code);
}

void readSpace(VolumeFacts& volume) {
    ULARGE_INTEGER size{}, unused{};
    const bool read = GetDiskFreeSpaceExW(volume.device.c_str(), nullptr, &size, &unused) != 0;
    const DWORD code = read ? ERROR_SUCCESS : GetLastError();
    volume.sizeBytes = read ? size.QuadPart : windows::unanswered<std::uint64_t>(code);
    volume.freeBytes = read ? unused.QuadPart : windows::unanswered<std::uint64_t>(code);
}

VolumeFacts factsOf(const std::wstring& device) {
    VolumeFacts volume;
    volume.device = device;
    const std::vector<std::wstring> paths = mountPaths(device);
    volume.type = typeOf(device);
    // Not every system knows the type by the volume's own name.
    if (volume.type == DriveType::unknown && !paths.empty()) volume.type = typeOf(paths.front());
    mountAt(paths, volume);
    readFileSystem(volume);
    readSpace(volume);
    return volume;
}

/// Lettered volumes, then those in folders only, then the rest.
int placeOf(const VolumeFacts& volume) {
    if (volume.letter) return 0;
    return volume.folders.empty() ? 2 : 1;
}

bool standsBefore(const VolumeFacts& left, const VolumeFacts& right) {
    if (placeOf(left) != placeOf(right)) return placeOf(left) < placeOf(right);
    if (left.letter != right.letter) return left.letter < right.letter;
    if (left.folders != right.folders) return left.folders < right.folders;
    return left.device < right.device;
}

}  // namespace

Answer<std::vector<VolumeFacts>> volumes() {
    const VolumeNames found = volumeNames();
    if (found.code != ERROR_SUCCESS) return windows::unanswered<std::vector<VolumeFacts>>(found.code);
    std::vector<VolumeFacts> volumes;
    for (const std::wstring& name : found.names)
        volumes.push_back(factsOf(name));
    std::sort(volumes.begin(), volumes.end(), standsBefore);
    return volumes;
}

}  // namespace host
