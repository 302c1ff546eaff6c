#include "runtime/host/utf.h"

#include <gtest/gtest.h>

namespace {

/// A high and a low surrogate: U+1F600.
const std::wstring face = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
const std::wstring loneHigh = {static_cast<wchar_t>(0xD83D)};
const std::wstring loneLow = {static_cast<wchar_t>(0xDE00)};
const std::wstring replacement = {static_cast<wchar_t>(0xFFFD)};

}  // namespace

TEST(ToUtf8, EncodesEachLength) {
    EXPECT_EQ(host::toUtf8(L"A"), "A");
    EXPECT_EQ(host::toUtf8(L"\u00E4"), "\xC3\xA4");
    EXPECT_EQ(host::toUtf8(L"\u20AC"), "\xE2\x82\xAC");
    EXPECT_EQ(host::toUtf8(face), "\xF0\x9F\x98\x80");
}

TEST(ToUtf8, EncodesTheLimitsOfEachLength) {
    EXPECT_EQ(host::toUtf8(L"\x7F"), "\x7F");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0x80))), "\xC2\x80");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0x7FF))), "\xDF\xBF");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0x800))), "\xE0\xA0\x80");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0xFFFF))), "\xEF\xBF\xBF");
    const std::wstring last = {static_cast<wchar_t>(0xDBFF), static_cast<wchar_t>(0xDFFF)};
    EXPECT_EQ(host::toUtf8(last), "\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, ReplacesSurrogatesWithoutPartner) {
    EXPECT_EQ(host::toUtf8(loneHigh), "\xEF\xBF\xBD");
    EXPECT_EQ(host::toUtf8(loneHigh + L"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(host::toUtf8(loneLow + L"x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(host::toUtf8(loneHigh + face), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(host::toUtf8(loneLow + loneHigh), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(ToUtf8, KeepsEmptyTextAndNul) {
    EXPECT_EQ(host::toUtf8(L""), "");
    EXPECT_EQ(host::toUtf8(std::wstring_view(L"a\0b", 3)), std::string("a\0b", 3));
}

#if WCHAR_MAX > 0xFFFF
TEST(ToUtf8, TakesWideCellsAsCharacters) {
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0x1F600))), "\xF0\x9F\x98\x80");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(0x110000))), "\xEF\xBF\xBD");
    EXPECT_EQ(host::toUtf8(std::wstring(1, static_cast<wchar_t>(-1))), "\xEF\xBF\xBD");
}
#endif

TEST(FromUtf8, DecodesEachLength) {
    EXPECT_EQ(host::fromUtf8("A"), L"A");
    EXPECT_EQ(host::fromUtf8("\xC3\xA4"), L"\u00E4");
    EXPECT_EQ(host::fromUtf8("\xE2\x82\xAC"), L"\u20AC");
    EXPECT_EQ(host::fromUtf8("\xF0\x9F\x98\x80"), face);
}

TEST(FromUtf8, ReplacesIllFormedBytesAndKeepsWhatFollows) {
    for (const char* bytes : {"\x80", "\xC1", "\xF5", "\xFF", "\xE2\x82", "\xF0\x9F\x98", "\xC3"}) {
        EXPECT_EQ(host::fromUtf8(std::string(bytes) + "x"), replacement + L"x") << bytes;
    }
    EXPECT_EQ(host::fromUtf8("\xE2\x82"), replacement);
}

TEST(FromUtf8, ReplacesOverlongFormsSurrogatesAndWhatIsTooLarge) {
    EXPECT_EQ(host::fromUtf8("\xC0\xAF"), replacement + replacement);
    EXPECT_EQ(host::fromUtf8("\xE0\x80\xAF"), replacement + replacement + replacement);
    EXPECT_EQ(host::fromUtf8("\xED\xA0\x80"), replacement + replacement + replacement);
    EXPECT_EQ(host::fromUtf8("\xF4\x90\x80\x80"), replacement + replacement + replacement + replacement);
}

TEST(FromUtf8, NeverGivesANul) {
    EXPECT_EQ(host::fromUtf8(std::string_view("a\0b", 3)), L"a" + replacement + L"b");
}

TEST(Utf, WhatIsWellFormedComesBackUnchanged) {
    std::wstring text;
    for (unsigned int unit = 1; unit < 0xD800; ++unit)
        text += static_cast<wchar_t>(unit);
    for (unsigned int unit = 0xE000; unit <= 0xFFFF; ++unit)
        text += static_cast<wchar_t>(unit);
    text += face;
    EXPECT_EQ(host::fromUtf8(host::toUtf8(text)), text);
}
