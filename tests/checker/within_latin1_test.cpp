#include "checker/within_latin1.h"

#include <gtest/gtest.h>

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

}  // namespace
