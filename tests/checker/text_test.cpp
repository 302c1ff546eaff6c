#include <gtest/gtest.h>

#include "checker/ReportLines.h"
#include "checker/within_latin1.h"

namespace {

TEST(WithinLatin1, KeepsWhatTheReportFileCanHold) {
    EXPECT_EQ(withinLatin1(L"a\r\n\u00E9\u00FF"), L"a\r\n\u00E9\u00FF");
}

TEST(WithinLatin1, OneQuestionMarkForACharacter) {
    EXPECT_EQ(withinLatin1(L"<\u0100\u4E2D>"),
              L"<?"
              L"?>");
    const wchar_t pair[] = {L'<', 0xD83D, 0xDE00, L'>', 0};
    EXPECT_EQ(withinLatin1(pair), L"<?>");
}

TEST(WithinLatin1, LoneSurrogatesAreCharactersToo) {
    const wchar_t lone[] = {0xDE00, 0xD83D, L'x', 0xD83D, 0};
    EXPECT_EQ(withinLatin1(lone), L"??x?");
    const wchar_t beforeHigher[] = {0xD83D, 0xFFFD, 0};
    EXPECT_EQ(withinLatin1(beforeHigher), L"??");
}

TEST(ReportLines, RunningTextIsKeptAsItStood) {
    ReportLines lines;
    lines.add(L"first");
    lines.appendToRunningText(L"a");
    lines.addRunningText();
    lines.appendToRunningText(L"b");
    lines.addRunningText();
    lines.add(L"");
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines.line(0), L"first");
    EXPECT_EQ(lines.line(1), L"a");
    EXPECT_EQ(lines.line(2), L"ab");
    EXPECT_EQ(lines.line(3), L"");
    EXPECT_THROW(lines.line(4), std::out_of_range);
}

}  // namespace
