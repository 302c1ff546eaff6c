#include "runtime/host/description/scanner.h"
#include "runtime/host/sid_text.h"

#include <gtest/gtest.h>

namespace {

using description::Scanner;

TEST(Scanner, TakesWordsFromLeftToRight) {
    Scanner scanner(L"  from call\t2 ");
    EXPECT_EQ(scanner.nextWord(), L"from");
    EXPECT_FALSE(scanner.take(L"fro"));
    EXPECT_TRUE(scanner.take(L"FROM"));
    EXPECT_EQ(scanner.rest(), L"call\t2");
    EXPECT_EQ(scanner.word(), L"call");
    EXPECT_FALSE(scanner.atEnd());
    EXPECT_EQ(scanner.word(), L"2");
    EXPECT_TRUE(scanner.atEnd());
    EXPECT_EQ(scanner.word(), L"");
}

TEST(Scanner, TakesTextsInQuotes) {
    Scanner scanner(L"\"My \"\"own\"\" disk\" rest");
    EXPECT_EQ(scanner.quotedText(), L"My \"own\" disk");
    EXPECT_EQ(scanner.rest(), L"rest");
    EXPECT_FALSE(scanner.quotedText());
    EXPECT_FALSE(Scanner(L"\"without end").quotedText());
    EXPECT_EQ(Scanner(L"\"\"").quotedText(), L"");
}

TEST(Scanner, TakesCauses) {
    Scanner scanner(L"refused alice");
    ASSERT_TRUE(scanner.cause());
    EXPECT_EQ(scanner.rest(), L"alice");
    EXPECT_EQ(Scanner(L"refused").cause()->code, 5U);
    EXPECT_EQ(Scanner(L"refused 1314").cause()->code, 1314U);
    EXPECT_FALSE(Scanner(L"error 21").cause()->refused);
    EXPECT_TRUE(Scanner(L"error 5").cause()->refused);
    Scanner none(L"error D:");
    EXPECT_FALSE(none.cause());
    EXPECT_EQ(none.rest(), L"error D:");
}

TEST(Scanner, TakesSizes) {
    Scanner scanner(L"40 GB free");
    EXPECT_EQ(scanner.size(), 42949672960U);
    EXPECT_EQ(scanner.rest(), L"free");
    EXPECT_FALSE(scanner.size());
    EXPECT_EQ(scanner.rest(), L"free");
    Scanner bytes(L"512 free");
    EXPECT_EQ(bytes.size(), 512U);
    EXPECT_EQ(bytes.rest(), L"free");
}

TEST(Trimmed, LeavesNoBlanksAtTheEnds) {
    EXPECT_EQ(description::trimmed(L" \t a b \u00A0"), L"a b");
    EXPECT_EQ(description::trimmed(L" \t"), L"");
}

TEST(CauseOf, SomeCodesRefuse) {
    EXPECT_TRUE(description::causeOf(5).refused);
    EXPECT_FALSE(description::causeOf(21).refused);
    EXPECT_TRUE(description::causeOf(21).any);
}

TEST(SizeOf, CountsInUnitsOf1024) {
    EXPECT_EQ(description::sizeOf(L"16", L"GB"), 17179869184U);
    EXPECT_EQ(description::sizeOf(L"1.5", L"kb"), 1536U);
    EXPECT_EQ(description::sizeOf(L"7", L""), 7U);
    EXPECT_EQ(description::sizeOf(L"16383", L"PB"), 16383U * 1125899906842624U);
    EXPECT_FALSE(description::sizeOf(L"16384", L"PB"));
    EXPECT_FALSE(description::sizeOf(L"1", L"XB"));
    EXPECT_FALSE(description::sizeOf(L"", L"GB"));
    EXPECT_FALSE(description::sizeOf(L"1.", L"GB"));
}

TEST(CodeOf, IsDecimalOrHexadecimal) {
    EXPECT_EQ(description::codeOf(L"1722"), 1722U);
    EXPECT_EQ(description::codeOf(L"0x80310000"), 0x80310000U);
    EXPECT_EQ(description::codeOf(L"0xAb"), 0xABU);
    EXPECT_EQ(description::codeOf(L"4294967295"), 0xFFFFFFFFU);
    for (const wchar_t* text : {L"", L"0x", L"0x123456789", L"0xg", L"4294967296", L"-1", L"5a"}) {
        EXPECT_FALSE(description::codeOf(text)) << text;
    }
}

}  // namespace
