#include "runtime/host/windows/cluster_library.h"

namespace host::windows {

DWORD ClusterLibrary::error() const noexcept {
    for (const DWORD code : {openCluster.error(), clusterInformation.error(), openEnum.error(), next.error(),
                             openNode.error(), nodeState.error(), openGroup.error(), groupState.error()}) {
        if (code != ERROR_SUCCESS) return code;
    }
    return ERROR_SUCCESS;
}

const ClusterLibrary& clusterLibrary() {
    static const ClusterLibrary library;
    return library;
}

}  // namespace host::windows
