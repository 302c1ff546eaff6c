#include <algorithm>

#include "runtime/host/description/state.h"
#include "runtime/host/host.h"
#include "runtime/host/volume_paths.h"

namespace host {

Answer<std::vector<VolumeFacts>> volumes() {
    const description::VolumeList& list = description::machine().volumes;
    if (list.cause.any) return description::answerOf<std::vector<VolumeFacts>>(list.cause);
    std::vector<VolumeFacts> volumes;
    for (const auto& [name, volume] : list.volumes)
        volumes.push_back(volume.facts);
    std::sort(volumes.begin(), volumes.end(), standsBefore);
    return volumes;
}

}  // namespace host
