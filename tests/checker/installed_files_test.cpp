#include "checker/installed_files.h"

#include <gtest/gtest.h>

namespace {

TEST(Padded, ANumberTakesThreeColumnsOrMore) {
    EXPECT_EQ(padded(0), L"  0");
    EXPECT_EQ(padded(42), L" 42");
    EXPECT_EQ(padded(999), L"999");
    EXPECT_EQ(padded(12345), L"12345");
}

}  // namespace
