#include "runtime/cluster/QVCluster.h"
#include "runtime/cluster/QVClusterMain.h"
#include "tests/runtime/error_of.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class QVClusterDescribed : public DescribedMachine {};

TEST_F(QVClusterDescribed, ListsNodesAndGroups) {
    describe(
        "[cluster]\nname = FSCLUSTER\nnode = NODE1 up\nnode = NODE2 down\n"
        "group = Cluster Group owner NODE1 online\ngroup = Files owner NODE2 partly online\n");
    EXPECT_EQ(QVCluster::mf_toString(L"> ").units(),
              L"> Cluster: FSCLUSTER\r\n"
              L"> Nodes:   NODE1 (up)\r\n"
              L">          NODE2 (down)\r\n"
              L"> Groups:  Cluster Group (owner NODE1, online)\r\n"
              L">          Files (owner NODE2, partly online)");
    EXPECT_NO_THROW(QVClusterMain::mf_startCluster(0));
}

TEST_F(QVClusterDescribed, WithoutNodesAndGroupsThereAreNone) {
    describe("[cluster]\nname = LONELY\n");
    EXPECT_EQ(QVCluster::mf_toString(L"").units(), L"Cluster: LONELY\r\nNodes:   none\r\nGroups:  none");
}

TEST_F(QVClusterDescribed, AServiceThatDoesNotAnswerIsTextInTheReportAndAnErrorAtStart) {
    describe("[cluster]\n! error 1722\n");
    EXPECT_EQ(QVCluster::mf_toString(L"  ").units(),
              L"  The cluster service does not answer, system error 1722: The RPC server is unavailable.");
    EXPECT_EQ(errorOf([] { QVClusterMain::mf_startCluster(0); }),
              L"System call failed: the cluster service does not answer, system error 1722: "
              L"The RPC server is unavailable.");
    describe("[cluster]\n! refused\n");
    EXPECT_EQ(QVCluster::mf_toString(L"").units(),
              L"The cluster service refuses to answer, system error 5: Access is denied.");
    EXPECT_EQ(
        errorOf([] { QVClusterMain::mf_startCluster(0); }),
        L"System call failed: the cluster service refuses to answer, system error 5: Access is denied.");
}

TEST_F(QVClusterDescribed, StoppingIsHarmlessWhateverTheClusterSays) {
    describe("[cluster]\n! error 1722\n");
    EXPECT_NO_THROW(QVClusterMain::mf_stopCluster());
    EXPECT_NO_THROW(QVClusterMain::mf_stopClusterStorage());
}

}  // namespace
