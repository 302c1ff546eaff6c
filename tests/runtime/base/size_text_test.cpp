#include "runtime/base/size_text.h"

#include <gtest/gtest.h>

namespace {

TEST(SizeText, TakesTheLargestUnit) {
    EXPECT_EQ(sizeText(0), L"0 bytes");
    EXPECT_EQ(sizeText(1), L"1 byte");
    EXPECT_EQ(sizeText(1023), L"1023 bytes");
    EXPECT_EQ(sizeText(1024), L"1 KB");
    EXPECT_EQ(sizeText(500ULL << 20), L"500 MB");
    EXPECT_EQ(sizeText(1536ULL << 30), L"1.5 TB");
    EXPECT_EQ(sizeText((1024ULL << 30) - 1), L"1023.9 GB");
    EXPECT_EQ(sizeText(0xFFFFFFFFFFFFFFFFULL), L"16777215.9 TB");
}

TEST(SizeText, ExactFormNamesTheBytes) {
    EXPECT_EQ(exactSizeText(524288000), L"500 MB (524288000 bytes)");
    EXPECT_EQ(exactSizeText(17), L"17 bytes");
}

}  // namespace
