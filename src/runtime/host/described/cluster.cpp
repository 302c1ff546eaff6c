#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

Answer<ClusterFacts> cluster() {
    const std::optional<description::ClusterDescription>& description = description::machine().cluster;
    if (!description) return Answer<ClusterFacts>::missing();
    return description->cause.any ? description::answerOf<ClusterFacts>(description->cause)
                                  : description->facts;
}

Answer<Done> clusterNode() {
    const Answer<ClusterFacts> answer = cluster();
    return answer.found() ? Answer<Done>(Done{}) : Answer<Done>::without(answer);
}

}  // namespace host
