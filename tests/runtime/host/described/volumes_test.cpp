#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Volumes = DescribedMachine;

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

}  // namespace
