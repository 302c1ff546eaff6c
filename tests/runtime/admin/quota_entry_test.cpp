#include "runtime/admin/quota_entry.h"

#include <gtest/gtest.h>

#include "runtime/admin/config_text.h"

namespace {

using Kind = QuotaEntry::Kind;

constexpr std::uint64_t kilobyte = 1024;
constexpr std::uint64_t megabyte = 1024 * kilobyte;
constexpr std::uint64_t gigabyte = 1024 * megabyte;
constexpr std::uint64_t terabyte = 1024 * gigabyte;

void expectEntry(const wchar_t* line, Kind kind, const wchar_t* account, const QVQuota& quota) {
    const auto entry = parseQuotaEntry(line);
    ASSERT_TRUE(entry.has_value()) << CString(line).units().size();
    EXPECT_EQ(entry->kind, kind);
    EXPECT_EQ(entry->account, account);
    EXPECT_TRUE(entry->quota == quota);
}

void expectMistake(const std::wstring& line, const wchar_t* text) {
    try {
        parseQuotaEntry(line);
        ADD_FAILURE() << "no mistake";
    } catch (const ConfigMistake& mistake) {
        EXPECT_EQ(mistake.text.units(), text);
    }
}

TEST(QuotaEntry, EmptyLinesAndCommentsAreNone) {
    for (const wchar_t* line : {L"", L" \t ", L"#", L"# user x = 1", L"   \t# default = 1"}) {
        EXPECT_FALSE(parseQuotaEntry(line).has_value());
    }
}

TEST(QuotaEntry, ReadsTheThreeKinds) {
    expectEntry(L"default = 500 MB", Kind::defaultQuota, L"", QVQuota::ofBytes(500 * megabyte));
    expectEntry(L"user CORP\\alice = 2 GB", Kind::user, L"CORP\\alice", QVQuota::ofBytes(2 * gigabyte));
    expectEntry(L"user S-1-5-21-1-2-3-1001 = unlimited", Kind::user, L"S-1-5-21-1-2-3-1001",
                QVQuota::unlimited());
    expectEntry(L"group BUILTIN\\Users = 750 MB", Kind::group, L"BUILTIN\\Users",
                QVQuota::ofBytes(750 * megabyte));
}

TEST(QuotaEntry, WordsMayBeInAnyCase) {
    expectEntry(L"DEFAULT = UNLIMITED", Kind::defaultQuota, L"", QVQuota::unlimited());
    expectEntry(L"User Alice = 1 kb", Kind::user, L"Alice", QVQuota::ofBytes(kilobyte));
    expectEntry(L"gRoUp Staff = 1 Tb", Kind::group, L"Staff", QVQuota::ofBytes(terabyte));
}

TEST(QuotaEntry, BlanksAreFree) {
    expectEntry(L"default=1", Kind::defaultQuota, L"", QVQuota::ofBytes(1));
    expectEntry(L"\tdefault \t=\t 1  ", Kind::defaultQuota, L"", QVQuota::ofBytes(1));
    expectEntry(L"user alice=1MB", Kind::user, L"alice", QVQuota::ofBytes(megabyte));
    expectEntry(L"user\t\"alice\"=1 \t MB", Kind::user, L"alice", QVQuota::ofBytes(megabyte));
}

TEST(QuotaEntry, QuotesHoldBlanksEqualsSignsAndHashes) {
    expectEntry(L"group \"CORP\\Domain Users\" = 1", Kind::group, L"CORP\\Domain Users", QVQuota::ofBytes(1));
    expectEntry(L"group \"a=b\" = 1", Kind::group, L"a=b", QVQuota::ofBytes(1));
    expectEntry(L"group \"C #1\" = 1", Kind::group, L"C #1", QVQuota::ofBytes(1));
    expectEntry(L"group \" C\" = 1", Kind::group, L" C", QVQuota::ofBytes(1));
}

TEST(QuotaEntry, ACommentBeginsBehindABlank) {
    expectEntry(L"default = 1 # all", Kind::defaultQuota, L"", QVQuota::ofBytes(1));
    expectEntry(L"default = unlimited\t#", Kind::defaultQuota, L"", QVQuota::unlimited());
    expectEntry(L"user a#b = 1 KB #c # d", Kind::user, L"a#b", QVQuota::ofBytes(kilobyte));
    expectMistake(L"default = 1#",
                  L"\"1#\" is no quota, expected \"unlimited\" or a whole number, alone or with KB, MB, GB "
                  L"or TB");
    expectMistake(L"user # alice = 1", L"no account, expected its name or SID behind \"user\"");
    expectMistake(L"user alice # = 1",
                  L"the line ends where \"=\" was expected; an account with blanks stands in quotes");
    expectMistake(L"default = # 1",
                  L"no quota, expected \"unlimited\" or a whole number, alone or with KB, MB, GB or TB");
}

TEST(QuotaEntry, UnitsArePowersOf1024) {
    expectEntry(L"default = 0", Kind::defaultQuota, L"", QVQuota::ofBytes(0));
    expectEntry(L"default = 1048576", Kind::defaultQuota, L"", QVQuota::ofBytes(megabyte));
    expectEntry(L"default = 3 KB", Kind::defaultQuota, L"", QVQuota::ofBytes(3 * kilobyte));
    expectEntry(L"default = 3 MB", Kind::defaultQuota, L"", QVQuota::ofBytes(3 * megabyte));
    expectEntry(L"default = 3 GB", Kind::defaultQuota, L"", QVQuota::ofBytes(3 * gigabyte));
    expectEntry(L"default = 3 TB", Kind::defaultQuota, L"", QVQuota::ofBytes(3 * terabyte));
    expectEntry(L"default = 0007", Kind::defaultQuota, L"", QVQuota::ofBytes(7));
}

TEST(QuotaEntry, TheLargestQuotaIs64BitsWide) {
    const auto largest = QVQuota::ofBytes(18446744073709551615U);
    expectEntry(L"default = 18446744073709551615", Kind::defaultQuota, L"", largest);
    expectEntry(L"default = 16777215 TB", Kind::defaultQuota, L"", QVQuota::ofBytes(16777215 * terabyte));
    for (const wchar_t* text :
         {L"18446744073709551616", L"16777216 TB", L"18014398509481984 KB", L"99999999999999999999 MB"}) {
        expectMistake(
            formatText(L"default = %s", text),
            formatText(L"\"%s\" is too large, expected at most 18446744073709551615 bytes", text).c_str());
    }
}

TEST(QuotaEntry, UnknownWordsAreMistakes) {
    expectMistake(L"users alice = 1", L"\"users\" is no entry, expected \"default\", \"user\" or \"group\"");
    expectMistake(L"= 1", L"\"\" is no entry, expected \"default\", \"user\" or \"group\"");
    expectMistake(L"\"user\" alice = 1",
                  L"\"\"user\"\" is no entry, expected \"default\", \"user\" or \"group\"");
    for (const wchar_t* text :
         {L"many", L"1 PB", L"1 M", L"MB", L"-1", L"+1", L"1.5 GB", L"1,000", L"1 000", L"0x10", L"1 MB x",
          L"unlimited x", L"\"1 MB\"", L"\u0661", L"= 1", L"1 bytes"}) {
        expectMistake(
            formatText(L"default = %s", text),
            formatText(
                L"\"%s\" is no quota, expected \"unlimited\" or a whole number, alone or with KB, MB, GB or TB",
                text)
                .c_str());
    }
}

TEST(QuotaEntry, AMissingEqualsSignIsAMistake) {
    expectMistake(L"default 1", L"\"1\" comes where \"=\" was expected");
    expectMistake(L"default", L"the line ends where \"=\" was expected");
    expectMistake(L"default alice = 1", L"\"alice = 1\" comes where \"=\" was expected");
    expectMistake(L"user alice",
                  L"the line ends where \"=\" was expected; an account with blanks stands in quotes");
    expectMistake(L"group Domain Users = 1",
                  L"\"Users = 1\" comes where \"=\" was expected; an account with blanks stands in quotes");
    expectMistake(L"user \"alice\"b = 1",
                  L"\"b = 1\" comes where \"=\" was expected; an account with blanks stands in quotes");
}

TEST(QuotaEntry, AnEmptyAccountIsAMistake) {
    for (const wchar_t* line : {L"user = 1", L"user", L"user \"\" = 1", L"user \" \" = 1"}) {
        expectMistake(line, L"no account, expected its name or SID behind \"user\"");
    }
    expectMistake(L"group=1", L"no account, expected its name or SID behind \"group\"");
}

TEST(QuotaEntry, QuotesMustCloseAndSurroundTheAccount) {
    expectMistake(L"user \"alice = 1",
                  L"\"\"alice = 1\" has no closing quote, expected \" behind the account");
    expectMistake(L"user CORP\\\"alice\" = 1",
                  L"\"CORP\\\"alice\"\" holds a quote, expected quotes around the whole account");
}

TEST(QuotaEntry, AMistakeQuotesALongTextShortened) {
    const std::wstring word(100000, L'x');
    expectMistake(word, (L"\"" + std::wstring(60, L'x') +
                         L"...\" is no entry, expected \"default\", \"user\" or \"group\"")
                            .c_str());
}

}  // namespace
