#include <algorithm>
#include <tuple>

#include "runtime/host/described/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

/// Lettered volumes first, by letter; then those in folders, by the first of them; then the rest, by device.
auto rankOf(const VolumeFacts& volume) {
    const int kind = volume.letter ? 0 : volume.folders.empty() ? 2 : 1;
    const std::wstring folder = kind == 1 ? volume.folders.front() : std::wstring();
    return std::make_tuple(kind, volume.letter.value_or(L'\0'), folder, volume.device);
}

}  // namespace

Answer<std::vector<VolumeFacts>> volumes() {
    const described::VolumeList& list = described::machine().volumes;
    if (list.cause.any) return described::answerOf<std::vector<VolumeFacts>>(list.cause);
    std::vector<VolumeFacts> volumes;
    for (const auto& [name, volume] : list.volumes)
        volumes.push_back(volume.facts);
    std::sort(volumes.begin(), volumes.end(),
              [](const VolumeFacts& left, const VolumeFacts& right) { return rankOf(left) < rankOf(right); });
    return volumes;
}

}  // namespace host
