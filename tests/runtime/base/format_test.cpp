#include "runtime/base/format.h"

#include <gtest/gtest.h>

#include "runtime/base/CString.h"

namespace {

TEST(Format, TakesWideTextInOrder) {
    EXPECT_EQ(formatText(L"%s and %s", L"one", CString(L"two")), L"one and two");
}

TEST(Format, ShowsNumbersDecimalAndHexadecimal) {
    EXPECT_EQ(formatText(L"%d %u %lu %i", -7, 7U, 4000000000UL, 0), L"-7 7 4000000000 0");
    EXPECT_EQ(formatText(L"%8.8x|%x|%X|%#x", 0x80U, 255U, 255U, 255U), L"00000080|ff|FF|0xff");
}

TEST(Format, ShowsTheSmallestNumber) {
    EXPECT_EQ(formatText(L"%d", -2147483647 - 1), L"-2147483648");
}

TEST(Format, NegativeNumberInAnUnsignedConversionIsItsPattern) {
    EXPECT_EQ(formatText(L"%u %x", -1, -1), L"4294967295 ffffffff");
}

TEST(Format, UnsignedLongHas32BitsEverywhere) {
    EXPECT_EQ(formatText(L"%lu", static_cast<unsigned long>(0xFFFFFFFFUL) + 1UL), L"0");
}

TEST(Format, PadsAndAligns) {
    EXPECT_EQ(formatText(L"[%5s][%-5s][%05d][%3d][%2.2d][%+d][% d]", L"ab", L"ab", 42, 7, 6, 5, 5),
              L"[   ab][ab   ][00042][  7][06][+5][ 5]");
}

TEST(Format, PrecisionCutsText) {
    EXPECT_EQ(formatText(L"%.2s|%.0s|", L"abc", L"abc"), L"ab||");
}

TEST(Format, CharacterIsItself) {
    EXPECT_EQ(formatText(L"%c%3c", L'x', L'.'), L"x  .");
}

TEST(Format, NulCharacterLeavesNoTrace) {
    EXPECT_EQ(formatText(L"a%cb", L'\0'), L"ab");
}

TEST(Format, NullPointerShowsAsSuch) {
    EXPECT_EQ(formatText(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST(Format, ConversionWithoutArgumentIsCopied) {
    EXPECT_EQ(formatText(L"100% %s %d"), L"100% %s %d");
    EXPECT_EQ(formatText(L"%s %s", L"one"), L"one %s");
}

TEST(Format, TwoPercentSignsAreOne) {
    EXPECT_EQ(formatText(L"100%%"), L"100%");
}

TEST(Format, UnknownConversionIsCopiedAndTakesNoArgument) {
    EXPECT_EQ(formatText(L"%n %p %f %*d %s", L"text"), L"%n %p %f %*d text");
    EXPECT_EQ(formatText(L"%"), L"%");
    EXPECT_EQ(formatText(L"%5"), L"%5");
    EXPECT_EQ(formatText(L"%l"), L"%l");
}

TEST(Format, ExcessiveWidthIsNoConversion) {
    EXPECT_EQ(formatText(L"%99999999999d", 1), L"%99999999999d");
    EXPECT_EQ(formatText(L"%.99999999999d", 1), L"%.99999999999d");
}

TEST(Format, ArgumentIsShownByItsOwnKind) {
    EXPECT_EQ(formatText(L"%s %d %c", 42, L"text", 7), L"42 text 7");
}

TEST(Format, DataIsNeverAFormat) {
    EXPECT_EQ(formatText(L"%s", L"%s%s%n%d"), L"%s%s%n%d");
}

TEST(Format, ThereIsNoLengthCap) {
    const std::wstring longText(100000, L'x');
    EXPECT_EQ(formatText(L"<%s>", longText.c_str()).size(), 100002U);
}

TEST(Format, ExtraArgumentsLeaveNoTrace) {
    EXPECT_EQ(formatText(L"%s", L"one", L"two"), L"one");
}

}  // namespace
