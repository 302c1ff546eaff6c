#include "runtime/host/volume_paths.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "runtime/host/letter_case.h"

namespace host {

namespace {

bool isDrive(const std::wstring& path) {
    return path.size() == 3 && path[1] == L':' && path[2] == L'\\';
}

auto rankOf(const VolumeFacts& volume) {
    const int kind = volume.letter ? 0 : volume.folders.empty() ? 2 : 1;
    const std::wstring folder = kind == 1 ? volume.folders.front() : std::wstring();
    return std::make_tuple(kind, volume.letter.value_or(L'\0'), folder, volume.device);
}

}  // namespace

void mountAt(std::vector<std::wstring> paths, VolumeFacts& volume) {
    std::sort(paths.begin(), paths.end());
    for (std::wstring& path : paths) {
        if (isDrive(path) && !volume.letter) {
            volume.letter = upperCase(path[0]);
        } else {
            volume.folders.push_back(std::move(path));
        }
    }
}

bool standsBefore(const VolumeFacts& left, const VolumeFacts& right) {
    return rankOf(left) < rankOf(right);
}

}  // namespace host
