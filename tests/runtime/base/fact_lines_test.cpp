#include "runtime/base/fact_lines.h"

#include <gtest/gtest.h>

namespace {

TEST(FactLines, AlignsFactsAndEndsWithoutLineBreak) {
    FactLines lines(L"  ", 8);
    EXPECT_EQ(lines.text(), L"");
    lines.add(L"One:", L"1");
    lines.add(L"A long label:", L"2");
    EXPECT_EQ(lines.text(), L"  One:    1\r\n  A long label:2");
}

TEST(FactLines, AFactStaysInItsLine) {
    FactLines lines(L"", 6);
    lines.add(L"Label:",
              L"a\r\nb\x1B[2J\x7F"
              L"\u0085"
              L"c");
    EXPECT_EQ(lines.text(), L"Label:a  b [2J  c");
}

}  // namespace
