#include <algorithm>

#include "runtime/host/host.h"
#include "runtime/host/volume_paths.h"
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
Answer<std::vector<std::wstring>> mountPaths(const std::wstring& device) {
    std::vector<wchar_t> list;
    const windows::Filled filled = windows::fill(list, [&](wchar_t* units, DWORD& size) -> DWORD {
        DWORD needed = 0;
        if (GetVolumePathNamesForVolumeNameW(device.c_str(), units, size, &needed)) return ERROR_SUCCESS;
        size = needed;
        return GetLastError();
    });
    if (filled.code != ERROR_SUCCESS) return windows::unanswered<std::vector<std::wstring>>(filled.code);
    std::vector<std::wstring> paths;
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
    const Answer<std::vector<std::wstring>> paths = mountPaths(device);
    if (!paths.found()) volume.paths = Answer<Done>::without(paths);
    volume.type = typeOf(device);
    // Not every system knows the type by the volume's own name.
    if (volume.type == DriveType::unknown && !paths.value.empty()) volume.type = typeOf(paths.value.front());
    mountAt(paths.value, volume);
    readFileSystem(volume);
    readSpace(volume);
    return volume;
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
