#include "runtime/host/volume_paths.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Paths = std::vector<std::wstring>;

host::VolumeFacts mounted(const wchar_t* device, const Paths& paths) {
    host::VolumeFacts volume;
    volume.device = device;
    host::mountAt(paths, volume);
    return volume;
}

TEST(VolumePaths, LetterAndFolders) {
    const auto volume = mounted(L"v", {L"D:\\z\\", L"e:\\", L"C:\\mnt\\data\\"});
    EXPECT_EQ(volume.letter, L'E');
    EXPECT_EQ(volume.folders, (Paths{L"C:\\mnt\\data\\", L"D:\\z\\"}));
}

TEST(VolumePaths, FolderOnlyAndNowhere) {
    EXPECT_FALSE(mounted(L"v", {L"C:\\m\\"}).letter);
    EXPECT_FALSE(mounted(L"v", {}).letter);
    EXPECT_TRUE(mounted(L"v", {}).folders.empty());
}

TEST(VolumePaths, WhatIsNoDriveIsAFolder) {
    for (const wchar_t* path : {L"C:", L"C:x", L"C\\\\", L"\\\\?\\", L""}) {
        const auto volume = mounted(L"v", {path});
        EXPECT_FALSE(volume.letter) << path;
        EXPECT_EQ(volume.folders, Paths{path});
    }
}

TEST(VolumePaths, SecondLetterIsNotLost) {
    const auto volume = mounted(L"v", {L"Y:\\", L"X:\\"});
    EXPECT_EQ(volume.letter, L'X');
    EXPECT_EQ(volume.folders, Paths{L"Y:\\"});
}

TEST(VolumePaths, Order) {
    std::vector<host::VolumeFacts> volumes = {
        mounted(L"b", {}), mounted(L"4", {L"C:\\b\\"}), mounted(L"9", {L"E:\\"}),
        mounted(L"a", {}), mounted(L"5", {L"C:\\a\\"}), mounted(L"8", {L"C:\\", L"A:\\x\\"}),
    };
    std::sort(volumes.begin(), volumes.end(), host::standsBefore);
    std::wstring order;
    for (const host::VolumeFacts& volume : volumes)
        order += volume.device;
    EXPECT_EQ(order, L"8954ab");
}

}  // namespace
