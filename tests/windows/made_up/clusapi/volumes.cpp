/// Made-up volumes: what no drive of a test machine can be, such as one that is mounted in folders, a locked
/// or a network one. The program imports these functions from a library that always stays the system's own,
/// so it is its imports that are replaced.

#include "tests/windows/made_up/clusapi/volumes.h"

#include <algorithm>
#include <bit>
#include <cwchar>
#include <iterator>

#include "runtime/host/os.h"
#include "tests/windows/made_up/shared/imports.h"
#include "tests/windows/made_up/shared/machine.h"
#include "tests/windows/made_up/shared/quirks.h"

namespace made_up {

namespace {

using description::VolumeDescription;

/// What stands behind the handle of a search.
struct Search {
    std::vector<std::wstring> devices;
    std::size_t next = 0;
};

template <class Result>
Result failed(DWORD code, Result result) {
    SetLastError(code);
    return result;
}

/// The volume of this name. One that no volume has is a mistake of the program, and so is a name without its
/// last backslash.
const VolumeDescription& volumeNamed(LPCWSTR device) {
    for (const auto& [name, volume] : machine().volumes.volumes)
        if (volume.facts.device == device) return volume;
    endProcess("a volume is asked for that is not listed\n");
}

/// Who asks a drive must not have the system open a dialog box for it.
void requireNoDialogBox() {
    if ((GetErrorMode() & SEM_FAILCRITICALERRORS) == 0) endProcess("a dialog box would be opened\n");
}

DWORD codeOf(const char* function, const VolumeDescription& volume) {
    const DWORD odd = oddityOf(function, false).error;
    if (odd != ERROR_SUCCESS) return odd;
    return volume.cause.any ? volume.cause.code : ERROR_SUCCESS;
}

BOOL put(const std::wstring& text, LPWSTR room, DWORD size) {
    if (size <= text.size()) return failed(ERROR_MORE_DATA, FALSE);
    std::wcscpy(room, text.c_str());
    return TRUE;
}

BOOL giveNext(Search& search, LPWSTR room, DWORD size) {
    if (search.next == search.devices.size()) return failed(ERROR_NO_MORE_FILES, FALSE);
    return put(search.devices[search.next++], room, size);
}

HANDLE WINAPI findFirst(LPWSTR room, DWORD size) {
    if (const DWORD odd = oddityOf("FindFirstVolumeW", false).error; odd != ERROR_SUCCESS)
        return failed(odd, INVALID_HANDLE_VALUE);
    const description::VolumeList& list = machine().volumes;
    if (list.cause.any) return failed(list.cause.code, INVALID_HANDLE_VALUE);
    Search search;
    for (const auto& [name, volume] : list.volumes)
        search.devices.push_back(volume.facts.device);
    // The system promises no order.
    std::reverse(search.devices.begin(), search.devices.end());
    if (!giveNext(search, room, size)) return INVALID_HANDLE_VALUE;
    count("not closed");
    return new Search(search);
}

BOOL WINAPI findNext(HANDLE search, LPWSTR room, DWORD size) {
    if (const DWORD odd = oddityOf("FindNextVolumeW", false).error; odd != ERROR_SUCCESS)
        return failed(odd, FALSE);
    return giveNext(*static_cast<Search*>(search), room, size);
}

BOOL WINAPI findClose(HANDLE search) {
    discount("not closed");
    delete static_cast<Search*>(search);
    return TRUE;
}

BOOL WINAPI pathNames(LPCWSTR device, LPWSTR room, DWORD size, LPDWORD needed) {
    const host::VolumeFacts& facts = volumeNamed(device).facts;
    if (const DWORD odd = oddityOf("GetVolumePathNamesForVolumeNameW", false).error; odd != ERROR_SUCCESS)
        return failed(odd, FALSE);
    if (!facts.paths.found()) return failed(facts.paths.failure.code, FALSE);
    std::vector<std::wstring> paths(facts.folders.rbegin(), facts.folders.rend());
    if (facts.letter) paths.push_back(std::wstring(1, *facts.letter) + L":\\");
    std::wstring list;
    for (const std::wstring& path : paths)
        list += path + L'\0';
    list += L'\0';
    *needed = static_cast<DWORD>(list.size());
    if (size < *needed) return failed(ERROR_MORE_DATA, FALSE);
    std::copy(list.begin(), list.end(), room);
    return TRUE;
}

UINT WINAPI driveType(LPCWSTR root) {
    // Some volumes tell their type only by the drive.
    if (root[1] == L':') return DRIVE_UNKNOWN;
    switch (volumeNamed(root).facts.type) {
        case host::DriveType::fixed: return DRIVE_FIXED;
        case host::DriveType::removable: return DRIVE_REMOVABLE;
        case host::DriveType::network: return DRIVE_REMOTE;
        case host::DriveType::optical: return DRIVE_CDROM;
        case host::DriveType::ramDisk: return DRIVE_RAMDISK;
        default: return DRIVE_UNKNOWN;
    }
}

BOOL WINAPI volumeInformation(LPCWSTR device, LPWSTR label, DWORD labelSize, LPDWORD, LPDWORD, LPDWORD,
                              LPWSTR fileSystem, DWORD fileSystemSize) {
    requireNoDialogBox();
    const VolumeDescription& volume = volumeNamed(device);
    if (const DWORD code = codeOf("GetVolumeInformationW", volume); code != ERROR_SUCCESS)
        return failed(code, FALSE);
    if (!volume.facts.fileSystem.found()) return failed(ERROR_UNRECOGNIZED_VOLUME, FALSE);
    return put(volume.facts.label.value, label, labelSize) &&
           put(volume.facts.fileSystem.value, fileSystem, fileSystemSize);
}

BOOL WINAPI freeSpace(LPCWSTR device, PULARGE_INTEGER, PULARGE_INTEGER size, PULARGE_INTEGER unused) {
    requireNoDialogBox();
    const VolumeDescription& volume = volumeNamed(device);
    if (const DWORD code = codeOf("GetDiskFreeSpaceExW", volume); code != ERROR_SUCCESS)
        return failed(code, FALSE);
    if (!volume.facts.sizeBytes.found() || !volume.facts.freeBytes.found())
        endProcess("a volume that can be read needs its size and what is free\n");
    size->QuadPart = volume.facts.sizeBytes.value;
    unused->QuadPart = volume.facts.freeBytes.value;
    return TRUE;
}

}  // namespace

void replaceVolumes() {
    if (variable(L"KVX_MADE_UP_VOLUMES").empty()) return;
    constexpr const char* library = "KERNEL32.dll";
    replaceImport(library, "FindFirstVolumeW", std::bit_cast<void*>(&findFirst));
    replaceImport(library, "FindNextVolumeW", std::bit_cast<void*>(&findNext));
    replaceImport(library, "FindVolumeClose", std::bit_cast<void*>(&findClose));
    replaceImport(library, "GetVolumePathNamesForVolumeNameW", std::bit_cast<void*>(&pathNames));
    replaceImport(library, "GetDriveTypeW", std::bit_cast<void*>(&driveType));
    replaceImport(library, "GetVolumeInformationW", std::bit_cast<void*>(&volumeInformation));
    replaceImport(library, "GetDiskFreeSpaceExW", std::bit_cast<void*>(&freeSpace));
}

}  // namespace made_up
