#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Cluster = DescribedMachine;

TEST_F(Cluster, IsTold) {
    describe(
        "[cluster]\nname = CLU1\nnode = NODE1 up\nnode = NODE TWO down\n"
        "group = Cluster Group owner NODE1 online\n"
        "group = The owner of it all partly online\nnode = node1 PAUSED\n");
    const auto cluster = host::cluster();
    ASSERT_TRUE(cluster.found());
    EXPECT_EQ(cluster.value.name, L"CLU1");
    ASSERT_EQ(cluster.value.nodes.size(), 2U);
    EXPECT_EQ(cluster.value.nodes[0].state, L"paused");
    EXPECT_EQ(cluster.value.nodes[1].name, L"NODE TWO");
    EXPECT_EQ(cluster.value.nodes[1].state, L"down");
    ASSERT_EQ(cluster.value.groups.size(), 2U);
    EXPECT_EQ(cluster.value.groups[0].name, L"Cluster Group");
    EXPECT_EQ(cluster.value.groups[0].owner, L"NODE1");
    EXPECT_EQ(cluster.value.groups[0].state, L"online");
    EXPECT_EQ(cluster.value.groups[1].state, L"partly online");
}

TEST_F(Cluster, AGroupNeedNoOwner) {
    describe("[cluster]\ngroup = Lost failed\n");
    EXPECT_EQ(host::cluster().value.groups.at(0).name, L"Lost");
    EXPECT_EQ(host::cluster().value.groups.at(0).owner, L"");
}

TEST_F(Cluster, NaturalCauses) {
    describe("[cluster]\nname = A\n! error 5050\n");
    EXPECT_EQ(host::cluster().failure.code, 5050U);
    describe("[cluster]\nname = A\n[cluster]\nclear\n");
    EXPECT_TRUE(host::cluster().isMissing());
}

}  // namespace
