#include "catalog/catalog.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

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
    for (const auto& message : catalog::messages)
        EXPECT_NE(catalog::textOf(message.id), nullptr) << message.id;
}

TEST(Catalog, UnknownIdentifierHasNoText) {
    EXPECT_EQ(catalog::textOf(0), nullptr);
    EXPECT_EQ(catalog::textOf(3035), nullptr);
    EXPECT_EQ(catalog::textOf(0xFFFFFFFF), nullptr);
}

/// A message with the inserts that are the program's own words; what comes from the machine is empty.
struct OwnInserts {
    unsigned int id;
    std::vector<CString> inserts;
};

/// Where the program has the choice, the longest words.
std::vector<OwnInserts> messagesWithOwnInserts() {
    const CString log = L"kvxinfo.log";
    const CString report = L"check_installation.txt";
    const CString program = L"kvxinfo";
    const CString client = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient";
    const CString ownKey = client + L"\\" + program;
    const CString guiKey = client + L"\\kvxgui";
    const CString level = L"LogLevel";
    const CString version = L"PtfLevel";
    const CString attributes = L"FileAttributesFilter";
    const CString size = L"FileSizeMinimum";
    const CString data;
    const CString unreadable = QVString(3273);
    const CString missing = QVString(3336);
    return {
        {3089, {log}},
        {3244, {unreadable, L"N/A"}},
        {3244, {missing, L"N/A"}},
        {3246, {attributes, guiKey}},
        {3247, {attributes, guiKey, data}},
        {3251, {client, version}},
        {3252, {client, version}},
        {3256, {L"NULL"}},
        {3291, {L"100", L"100"}},
        {3307, {ownKey, level}},
        {3309, {program, ownKey, level}},
        {3310, {program, ownKey, level}},
        {3313, {size, guiKey, data}},
        {3315, {size, guiKey}},
        {3316, {size, guiKey, data}},
        {3317, {guiKey, size}},
        {3325, {report}},
        {3326, {report}},
        {3333, {L"group", L"group", data, QVString(3268), data}},
        {3334, {QVString(3344)}},
        {3335, {attributes, guiKey, data}},
        {3337, {L">= 6.1.0.0, < 7.0.0.0"}},
        {3341, {unreadable, unreadable}},
        {3341, {missing, missing}},
        {3348, {log}},
        {3352, {QVString(3345)}},
        {3354, {QVString(3345)}},
    };
}

/// The text of a message with these inserts, checked against their number.
CString built(const OwnInserts& message) {
    const std::vector<FormatArgument> inserts(message.inserts.begin(), message.inserts.end());
    EXPECT_EQ(inserts.size(), std::string_view(catalog::insertsOf(message.id)).size()) << message.id;
    return CString(formatWith(catalog::textOf(message.id), inserts.data(), inserts.size()));
}

void expectNarrow(const CString& text, unsigned int id) {
    int column = 0;
    for (const wchar_t unit : text.units()) {
        column = unit == L'\n' || unit == L'\r' ? 0 : column + 1;
        EXPECT_LE(column, 79) << id;
    }
}

TEST(Catalog, NoLineIsOver79Columns) {
    for (const auto& message : catalog::messages) {
        expectNarrow(CString(catalog::textOf(message.id)), message.id);
    }
    for (const OwnInserts& message : messagesWithOwnInserts())
        expectNarrow(built(message), message.id);
}

TEST(Catalog, UsageNamesEveryKeywordAndOption) {
    const std::wstring usage = catalog::textOf(3348);
    const auto isListed = [&usage](const std::wstring& word) {
        return usage.find(L"\r\n    " + word + L" ") != std::wstring::npos;
    };
    for (const Report& report : reports())
        EXPECT_TRUE(isListed(report.keyword)) << report.keyword;
    for (const wchar_t* word : {L"all", L"help", L"save", L"errors"})
        EXPECT_TRUE(isListed(word)) << word;
    EXPECT_FALSE(isListed(L"nonsense"));
}

}  // namespace
