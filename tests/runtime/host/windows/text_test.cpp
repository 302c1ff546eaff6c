#include "runtime/host/windows/text.h"

#include <gtest/gtest.h>

namespace {

using host::windows::equalIgnoringCase;
using host::windows::textOf;
using host::windows::trimmed;

TEST(HostText, NoTextIsEmpty) {
    EXPECT_EQ(textOf(nullptr), L"");
    EXPECT_EQ(textOf(L"a"), L"a");
}

TEST(HostText, BlanksAtTheEndsAreTrimmed) {
    EXPECT_EQ(trimmed(L"  a b  "), L"a b");
    EXPECT_EQ(trimmed(L"a"), L"a");
    EXPECT_EQ(trimmed(L"   "), L"");
    EXPECT_EQ(trimmed(L""), L"");
}

TEST(HostText, NamesAreTheSameInAnyLetterCase) {
    EXPECT_TRUE(equalIgnoringCase(L"Caf\u00E9", L"CAF\u00C9"));
    EXPECT_TRUE(equalIgnoringCase(L"", L""));
    EXPECT_FALSE(equalIgnoringCase(L"a", L"ab"));
    EXPECT_FALSE(equalIgnoringCase(L"a", L"b"));
}

}  // namespace
