#include "runtime/cluster/QVClusterMain.h"

#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"

namespace {

TEST(QVClusterMainTest, StopsWhatNeverStarted) {
    EXPECT_NO_THROW({
        QVClusterMain::mf_stopCluster();
        QVClusterMain::mf_stopClusterStorage();
        QVClusterMain::mf_deleteInstance();
        QVClusterMain::mf_deleteInstance();
    });
}

TEST(QVClusterMainTest, StartsAgainAfterAStop) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_NO_THROW(QVClusterMain::mf_createInstance());
        EXPECT_NO_THROW(QVClusterMain::mf_startClusterStorage(0));
        EXPECT_EQ(errorOf([] { QVClusterMain::mf_startCluster(0); }).empty(), host::clusterNode().found());
        EXPECT_NO_THROW(QVClusterMain::mf_stopCluster());
        EXPECT_NO_THROW(QVClusterMain::mf_stopClusterStorage());
        EXPECT_NO_THROW(QVClusterMain::mf_deleteInstance());
    }
}

TEST(QVClusterMainTest, AComputerThatIsNoNodeIsAnErrorAtStart) {
    if (!host::clusterNode().isMissing()) GTEST_SKIP() << "this computer is a node of a cluster";
    EXPECT_EQ(errorOf([] { QVClusterMain::mf_startCluster(0); }),
              L"Operation failed: this computer is not a node of a cluster");
}

}  // namespace
