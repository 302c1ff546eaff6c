#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(HostCluster, ThisComputerIsInAClusterWithNodesOrInNone) {
    const auto answer = host::cluster();
    if (answer.found()) {
        EXPECT_FALSE(answer.value.nodes.empty());
    } else {
        EXPECT_TRUE(answer.isMissing()) << answer.failure.code;
    }
}

}  // namespace
