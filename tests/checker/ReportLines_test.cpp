#include "checker/ReportLines.h"

#include <gtest/gtest.h>

namespace {

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
