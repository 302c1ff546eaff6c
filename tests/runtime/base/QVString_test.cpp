#include "runtime/base/QVString.h"

#include <gtest/gtest.h>

namespace {

TEST(QVString, FormatsItsInserts) {
    EXPECT_EQ(CString(QVString(3261, CString(L"CORP"))), L"    Domain:                    CORP\r\n");
    EXPECT_EQ(CString(QVString(3249, 0x80U)), L"       00000080 all bits of the filter\n");
}

TEST(QVString, AnIdentifierWithoutTextKeepsItsInserts) {
    EXPECT_EQ(CString(QVString::unchecked(9999, {})), L"[9999]");
    EXPECT_EQ(CString(QVString::unchecked(9999, {L"a%s", 0x20U, L'x', -1})), L"[9999|a%s|32|x|-1]");
}

TEST(QVString, TextIsReadableWhileTheObjectLives) {
    const QVString text(3268);
    const wchar_t* const pointer = text;
    EXPECT_EQ(CString(pointer), CString(text));
}

TEST(QVString, JoinsWithTexts) {
    const QVString text = QVString::unchecked(9999, {L"x"});
    EXPECT_EQ(L"<" + text, L"<[9999|x]");
    EXPECT_EQ(text + L">", L"[9999|x]>");
    EXPECT_EQ(text + text, L"[9999|x][9999|x]");
    CString longer = L"<";
    longer += text;
    EXPECT_EQ(longer, L"<[9999|x]");
}

}  // namespace
