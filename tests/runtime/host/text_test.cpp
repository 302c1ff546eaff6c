#include "runtime/host/text.h"

#include <gtest/gtest.h>

namespace {

TEST(TextOrEmpty, TakesANullPointer) {
    EXPECT_EQ(host::textOrEmpty(nullptr), L"");
    EXPECT_EQ(host::textOrEmpty(L"a"), L"a");
}

TEST(Trimmed, LosesTheBlanksAtItsEnds) {
    EXPECT_EQ(host::trimmed(L" \ta b\t "), L"a b");
    EXPECT_EQ(host::trimmed(L" \t"), L"");
    EXPECT_EQ(host::trimmed(L""), L"");
    EXPECT_EQ(host::trimmed(L"\ta ", L" "), L"\ta");
}

TEST(InOneLine, HasABlankForEachControlCharacter) {
    EXPECT_EQ(host::inOneLine(L"a\r\nb\tc\x1B[2J\x7F\x85\x9F\u2028\u2029d"), L"a  b c [2J     d");
}

TEST(InOneLine, HasNoBlanksAtItsEnd) {
    EXPECT_EQ(host::inOneLine(L" a. \r\n"), L" a.");
    EXPECT_EQ(host::inOneLine(L"\r\n "), L"");
    EXPECT_EQ(host::inOneLine(L""), L"");
}

TEST(InOneLine, LeavesLettersAlone) {
    EXPECT_EQ(host::inOneLine(L"\u00A0\u0141\u6F22~"), L"\u00A0\u0141\u6F22~");
}

}  // namespace
