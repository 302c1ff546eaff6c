#include "runtime/cluster/QVCluster.h"

#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(QVClusterTest, AComputerThatIsNoNodeSaysSoInOneLine) {
    if (!host::cluster().isMissing()) GTEST_SKIP() << "this computer is a node of a cluster";
    EXPECT_EQ(QVCluster::mf_toString(L"    "), L"    This computer is not a node of a cluster.");
    EXPECT_EQ(QVCluster::mf_toString(L""), L"This computer is not a node of a cluster.");
}

}  // namespace
