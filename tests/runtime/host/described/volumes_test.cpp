#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class Volumes : public DescribedMachine {};
class Cluster : public DescribedMachine {};
class Services : public DescribedMachine {};

}  // namespace

TEST_F(Volumes, AreTold) {
    describe("[volumes]\nc: = fixed NTFS \"My \"\"own\"\"\" 100 GB free 512\n");
    const auto volumes = host::volumes();
    ASSERT_EQ(volumes.value.size(), 1U);
    const host::VolumeFacts& volume = volumes.value[0];
    EXPECT_EQ(volume.letter, L'C');
    EXPECT_EQ(volume.type, host::DriveType::fixed);
    EXPECT_EQ(volume.fileSystem.value, L"NTFS");
    EXPECT_EQ(volume.label.value, L"My \"own\"");
    EXPECT_EQ(volume.sizeBytes.value, 107374182400U);
    EXPECT_EQ(volume.freeBytes.value, 512U);
    EXPECT_TRUE(volume.device.starts_with(L"\\\\?\\Volume{"));
    EXPECT_TRUE(volume.device.ends_with(L"}\\"));
}

TEST_F(Volumes, TellNothingThatIsNotDescribed) {
    describe("[volumes]\nZ: = network\n");
    const host::VolumeFacts volume = host::volumes().value.at(0);
    EXPECT_EQ(volume.type, host::DriveType::network);
    EXPECT_TRUE(volume.fileSystem.isMissing());
    EXPECT_TRUE(volume.sizeBytes.isMissing());
    EXPECT_TRUE(volume.freeBytes.isMissing());
    EXPECT_TRUE(volume.label.found());
    EXPECT_EQ(volume.label.value, L"");
}

TEST_F(Volumes, ComeInOrder) {
    describe(
        "[volumes]\n\\\\?\\Volume{z}\\ = fixed NTFS\nE: = removable FAT32\n"
        "\\\\?\\Volume{b}\\ = fixed NTFS folders D:\\z | C:\\m\n"
        "\\\\?\\Volume{a} = ram NTFS\nC: = fixed NTFS device \\\\?\\Volume{c}\\\n"
        "\\\\?\\Volume{y}\\ = unknown folders B:\\only\n");
    std::vector<std::wstring> order;
    for (const host::VolumeFacts& volume : host::volumes().value)
        order.push_back(volume.device);
    ASSERT_EQ(order.size(), 6U);
    EXPECT_EQ(order[0], L"\\\\?\\Volume{c}\\");
    EXPECT_EQ(order[2], L"\\\\?\\Volume{y}\\");
    EXPECT_EQ(order[3], L"\\\\?\\Volume{b}\\");
    EXPECT_EQ(order[4], L"\\\\?\\Volume{a}\\");
    EXPECT_EQ(order[5], L"\\\\?\\Volume{z}\\");
    EXPECT_EQ(host::volumes().value[3].folders, (std::vector<std::wstring>{L"C:\\m\\", L"D:\\z\\"}));
}

TEST_F(Volumes, NaturalCauses) {
    describe("[volumes]\nD: = optical error 21\nE: = fixed refused folders E:\\f\n");
    const auto volumes = host::volumes();
    EXPECT_EQ(volumes.value[0].fileSystem.status, host::Status::failed);
    EXPECT_EQ(volumes.value[0].label.failure.code, 21U);
    EXPECT_EQ(volumes.value[0].sizeBytes.failure.code, 21U);
    EXPECT_EQ(volumes.value[0].freeBytes.failure.code, 21U);
    EXPECT_EQ(volumes.value[1].fileSystem.status, host::Status::refused);
    EXPECT_EQ(volumes.value[1].folders.size(), 1U);
    describe("[volumes]\nC: = fixed NTFS\n! error 1722\n");
    EXPECT_EQ(host::volumes().failure.code, 1722U);
}

TEST_F(Volumes, AreReplacedAndTakenOut) {
    describe("[volumes]\nC: = fixed NTFS\nD: = fixed NTFS\n[volumes]\nc: = fixed ReFS\n- D:\n");
    ASSERT_EQ(host::volumes().value.size(), 1U);
    EXPECT_EQ(host::volumes().value[0].fileSystem.value, L"ReFS");
}

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

TEST_F(Services, AreTold) {
    describe(
        "[services]\nrkhsmdrv = running C:\\Windows\\system32\\drivers\\x y.sys\nother = Stopped\n"
        "third = start pending\n");
    const auto service = host::service(L"RKHSMDRV");
    ASSERT_TRUE(service.found());
    EXPECT_TRUE(service.value.running);
    EXPECT_EQ(service.value.state, L"running");
    EXPECT_EQ(service.value.imagePath, L"C:\\Windows\\system32\\drivers\\x y.sys");
    EXPECT_FALSE(host::service(L"other").value.running);
    EXPECT_EQ(host::service(L"other").value.imagePath, L"C:\\Windows\\system32\\drivers\\other.sys");
    EXPECT_EQ(host::service(L"third").value.state, L"start pending");
    EXPECT_TRUE(host::service(L"none").isMissing());
}

TEST_F(Services, NaturalCauses) {
    describe("[services]\na = running\nb = running\n! refused a\n! error 1060 c\n- b\n! error 1722 d\n");
    EXPECT_EQ(host::service(L"a").status, host::Status::refused);
    EXPECT_TRUE(host::service(L"b").isMissing());
    EXPECT_TRUE(host::service(L"c").isMissing());
    EXPECT_EQ(host::service(L"d").failure.code, 1722U);
}
