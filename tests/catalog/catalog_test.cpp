#include "catalog/catalog.h"

#include <gtest/gtest.h>

#include "main/report_register.h"
#include "runtime/base/CString.h"
#include "runtime/base/QVString.h"

namespace {

using catalog::takesExactly;

// The check that the catalog passes when it is compiled must not be one that everything passes.
static_assert(takesExactly(L"plain", ""));
static_assert(takesExactly(L"%s %u %c", "suc"));
static_assert(takesExactly(L"%8.8x 100%%", "u"));
static_assert(!takesExactly(L"%s", ""));
static_assert(!takesExactly(L"plain", "s"));
static_assert(!takesExactly(L"%u", "s"));
static_assert(!takesExactly(L"%s %u", "us"));
static_assert(!takesExactly(L"%n", ""));
static_assert(!takesExactly(L"100% sure", ""));
static_assert(!takesExactly(L"%d", "u"));

TEST(Catalog, HasOneHundredAndFifteenMessagesInOrder) {
    EXPECT_EQ(catalog::messageCount, 115U);
    for (unsigned i = 1; i < catalog::messageCount; ++i) {
        EXPECT_LT(catalog::messages[i - 1].id, catalog::messages[i].id);
    }
}

TEST(Catalog, EveryMessageHasAText) {
    for (const auto& message : catalog::messages) EXPECT_NE(catalog::textOf(message.id), nullptr) << message.id;
}

TEST(Catalog, UnknownIdentifierHasNoText) {
    EXPECT_EQ(catalog::textOf(0), nullptr);
    EXPECT_EQ(catalog::textOf(3035), nullptr);
    EXPECT_EQ(catalog::textOf(0xFFFFFFFF), nullptr);
}

TEST(Catalog, NoLineIsOver79Columns) {
    for (const auto& message : catalog::messages) {
        const CString text(catalog::textOf(message.id));
        int column = 0;
        for (const wchar_t unit : text.units()) {
            column = unit == L'\n' || unit == L'\r' ? 0 : column + 1;
            EXPECT_LE(column, 79) << message.id;
        }
    }
}

TEST(Catalog, UsageNamesEveryKeywordAndOption) {
    const std::wstring usage = catalog::textOf(3348);
    const auto isListed = [&usage](const std::wstring& word) {
        return usage.find(L"\r\n    " + word + L" ") != std::wstring::npos;
    };
    for (const Report& report : reports()) EXPECT_TRUE(isListed(report.keyword)) << report.keyword;
    for (const wchar_t* word : {L"all", L"help", L"save", L"errors"}) EXPECT_TRUE(isListed(word)) << word;
    EXPECT_FALSE(isListed(L"nonsense"));
}

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

}  // namespace
