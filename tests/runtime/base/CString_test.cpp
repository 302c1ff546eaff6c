#include "runtime/base/CString.h"

#include <gtest/gtest.h>

namespace {

TEST(CString, NullPointerIsEmpty) {
    EXPECT_TRUE(CString(static_cast<const wchar_t*>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(static_cast<const char*>(nullptr)).IsEmpty());
}

TEST(CString, TakesANarrowLiteral) {
    EXPECT_EQ(CString("kvxinfo.log"), L"kvxinfo.log");
    EXPECT_EQ(CString("\xE9"), L"\u00E9");
}

TEST(CString, AppendsTextsAndUnits) {
    CString text(L"a");
    text += L"b";
    text += CString(L"c");
    text += L'd';
    EXPECT_EQ(text, L"abcd");
    EXPECT_EQ(text.GetLength(), 4);
    EXPECT_EQ(L"<" + text + L">", L"<abcd>");
}

TEST(CString, FormatsOverItself) {
    CString text(L"7");
    text.Format(L" %s", text);
    text.Format(L" %s", text);
    EXPECT_EQ(text, L"  7");
}

TEST(CString, ComparesUnitByUnit) {
    EXPECT_EQ(CString(L"all").Compare(L"all"), 0);
    EXPECT_LT(CString(L"all").Compare(L"alm"), 0);
    EXPECT_NE(CString(L"All").Compare(L"all"), 0);
    EXPECT_EQ(CString(L"ALL").CompareNoCase(L"all"), 0);
}

TEST(CString, ChangesCaseInEveryLocale) {
    CString lower(L"VERSION \u00C4\u0160\u0391\u0416");
    lower.MakeLower();
    EXPECT_EQ(lower, L"version \u00E4\u0161\u03B1\u0436");
    CString upper(L"ntfs \u00E4\u0161\u03B1\u0436\u00FF");
    upper.MakeUpper();
    EXPECT_EQ(upper, L"NTFS \u00C4\u0160\u0391\u0416\u0178");
}

TEST(CString, LeavesWhatHasNoCase) {
    // The signs of multiplication and division stand in the middle of the letters, the sharp s and final
    // sigma have no partner.
    const wchar_t* const text = L"\u00D7\u00F7\u00DF\u03C21_\\";
    CString lower(text);
    lower.MakeLower();
    EXPECT_EQ(lower, text);
    CString upper(text);
    upper.MakeUpper();
    EXPECT_EQ(upper, text);
}

TEST(CString, CaseOfEveryLetterComesBack) {
    for (wchar_t unit = 1; unit < 0x2000; ++unit) {
        CString text(std::wstring(1, unit));
        CString upper = text;
        upper.MakeUpper();
        if (upper == text) continue;
        upper.MakeLower();
        EXPECT_EQ(upper, text) << std::hex << static_cast<unsigned>(unit);
    }
}

TEST(CString, KelvinSignIsNoLatinLetter) {
    CString text(L"\u212A");
    text.MakeLower();
    EXPECT_EQ(text, L"\u212A");
}

}  // namespace
