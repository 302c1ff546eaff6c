#include "runtime/base/system_error.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemErrorPhrase, IsEmptyWithoutACode) {
    EXPECT_EQ(systemErrorPhrase(0), L"");
}

TEST(SystemErrorPhrase, HoldsCodeAndText) {
    EXPECT_EQ(systemErrorPhrase(5), L", system error 5: " + host::systemErrorText(5));
    EXPECT_EQ(systemErrorPhrase(0x7FFFFFFF),
              L", system error 2147483647: " + host::systemErrorText(0x7FFFFFFF));
}

TEST(SystemErrorPhrase, ALargeCodeStandsInHexadecimal) {
    EXPECT_TRUE(systemErrorPhrase(0x80000000).starts_with(L", system error 0x80000000: "));
    EXPECT_TRUE(systemErrorPhrase(0x80310000).starts_with(L", system error 0x80310000: "));
}

}  // namespace
