#include "runtime/host/description/file_lookup.h"

#include "runtime/host/description/scanner.h"
#include "runtime/host/description/windows_path.h"

namespace description {

namespace {

constexpr std::uint32_t noSuchServer = 53;

/// The root directory of a drive that a volume has.
const FileEntry rootDirectory{true, {}};

const VolumeDescription* volumeOf(const Machine& machine, const std::wstring& key) {
    if (key.size() < 2 || key[1] != L':') return nullptr;
    const auto found = machine.volumes.volumes.find(key.substr(0, 2));
    return found == machine.volumes.volumes.end() ? nullptr : &found->second;
}

const FileEntry* entryOf(const Machine& machine, const std::wstring& key) {
    const auto found = machine.files.entries.find(key);
    return found == machine.files.entries.end() ? nullptr : &found->second;
}

/// What stands behind "\\?\" is taken as it is.
std::wstring keyOf(const Machine& machine, const std::wstring& path) {
    const bool isVerbatim = path.starts_with(L"\\\\?\\");
    return pathKey(isVerbatim ? path : fullPath(path, machine.system.currentDirectory));
}

/// Whether the path leads to a share of which the description tells nothing.
bool isOnUnknownShare(const Machine& machine, const std::wstring& key) {
    const bool isShare =
        key.empty() || (key.starts_with(L"\\\\") && !key.starts_with(L"\\\\?") && !key.starts_with(L"\\\\."));
    return isShare && entryOf(machine, std::wstring(rootOf(key))) == nullptr;
}

}  // namespace

LookedUp lookUp(const Machine& machine, const std::wstring& path) {
    LookedUp result;
    result.key = keyOf(machine, path);
    if (isOnUnknownShare(machine, result.key)) result.cause = causeOf(noSuchServer);
    result.entry = entryOf(machine, result.key);
    const VolumeDescription* volume = volumeOf(machine, result.key);
    if (volume != nullptr) result.cause = volume->cause;
    if (volume != nullptr && result.entry == nullptr && result.key.size() == 2) result.entry = &rootDirectory;
    for (std::wstring key = result.key; !result.cause.any && !key.empty(); key = parentKey(key)) {
        const FileEntry* entry = entryOf(machine, key);
        if (entry != nullptr) result.cause = entry->cause;
    }
    return result;
}

}  // namespace description
