#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/host/host.h"

namespace {

TEST(HostVolumes, ThereIsADriveC) {
    const auto answer = host::volumes();
    ASSERT_TRUE(answer.found());
    const auto c = std::find_if(answer.value.begin(), answer.value.end(),
                                [](const host::VolumeFacts& volume) { return volume.letter == L'C'; });
    ASSERT_NE(c, answer.value.end());
    EXPECT_TRUE(c->device.starts_with(L"\\\\?\\Volume{"));
    EXPECT_TRUE(c->device.ends_with(L"\\"));
    EXPECT_EQ(c->type, host::DriveType::fixed);
    EXPECT_TRUE(c->fileSystem.found() && !c->fileSystem.value.empty());
    EXPECT_TRUE(c->label.found());
    ASSERT_TRUE(c->sizeBytes.found() && c->freeBytes.found());
    EXPECT_GT(c->sizeBytes.value, 0U);
    EXPECT_LE(c->freeBytes.value, c->sizeBytes.value);
}

TEST(HostVolumes, LettersComeFirstAndInTheirOrder) {
    const auto answer = host::volumes();
    ASSERT_TRUE(answer.found());
    wchar_t last = L'\0';
    bool lettersOver = false;
    for (const host::VolumeFacts& volume : answer.value) {
        if (!volume.letter) {
            lettersOver = true;
            continue;
        }
        EXPECT_FALSE(lettersOver);
        EXPECT_LT(last, *volume.letter);
        last = *volume.letter;
    }
}

}  // namespace
