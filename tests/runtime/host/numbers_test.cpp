#include "runtime/host/numbers.h"

#include <gtest/gtest.h>

namespace {

using host::DottedVersion;

TEST(Numbers, AreDigitsAndNothingElse) {
    EXPECT_EQ(host::numberOf(L"0"), 0U);
    EXPECT_EQ(host::numberOf(L"007"), 7U);
    EXPECT_EQ(host::numberOf(L"18446744073709551615"), 18446744073709551615U);
    for (const wchar_t* text :
         {L"", L"18446744073709551616", L"99999999999999999999", L"-1", L"+1", L"1 ", L"1a"})
        EXPECT_FALSE(host::numberOf(text)) << std::wstring(text).size();
}

TEST(Numbers, HaveABound) {
    EXPECT_EQ(host::numberOf(L"255", 255), 255U);
    EXPECT_FALSE(host::numberOf(L"256", 255));
    EXPECT_FALSE(host::numberOf(L"9", 5));
    EXPECT_EQ(host::numberOf(L"0", 0), 0U);
}

TEST(Numbers, CanBeHexadecimal) {
    EXPECT_EQ(host::hexNumberOf(L"fF"), 255U);
    EXPECT_EQ(host::hexNumberOf(L"ffffffffffffffff"), 18446744073709551615U);
    for (const wchar_t* text : {L"", L"g", L"0x1", L"10000000000000000"})
        EXPECT_FALSE(host::hexNumberOf(text)) << std::wstring(text).size();
    EXPECT_FALSE(host::hexNumberOf(L"100", 255));
}

TEST(Versions, HaveUpToFourNumbers) {
    EXPECT_EQ(host::versionOf(L"6.1.5.2"), (DottedVersion{6, 1, 5, 2}));
    EXPECT_EQ(host::versionOf(L"6.1"), (DottedVersion{6, 1, 0, 0}));
    EXPECT_EQ(host::versionOf(L"4294967295"), (DottedVersion{4294967295U, 0, 0, 0}));
    EXPECT_EQ(host::versionText({6, 1, 0, 4294967295U}), L"6.1.0.4294967295");
}

TEST(Versions, AreNothingElse) {
    for (const wchar_t* text : {L"", L".", L"6.", L".1", L"6..1", L"6.1.5.2.0", L"6.1.5.2.", L"6,1", L"v6",
                                L"6.1 beta", L"6.1x", L" 6", L"4294967296", L"99999999999999999999", L"-6"})
        EXPECT_FALSE(host::versionOf(text)) << std::wstring(text).size();
    EXPECT_FALSE(host::versionOf(L"6.65536", 65535));
}

TEST(Versions, AreComparedNumberByNumber) {
    EXPECT_LT((DottedVersion{6, 9, 0, 0}), (DottedVersion{6, 10, 0, 0}));
}

}  // namespace
