#include "runtime/host/description/source.h"

#include <fstream>

#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Lines = std::vector<std::wstring>;

}  // namespace

TEST(LinesOf, EndsLinesInEveryWay) {
    EXPECT_EQ(description::linesOf("a\nb\r\nc\rd"), (Lines{L"a", L"b", L"c", L"d"}));
    EXPECT_EQ(description::linesOf("a\n\n"), (Lines{L"a", L""}));
    EXPECT_EQ(description::linesOf(""), Lines{});
    EXPECT_EQ(description::linesOf("\r\n"), Lines{L""});
}

TEST(LinesOf, KnowsByteOrderMarks) {
    EXPECT_EQ(description::linesOf("\xEF\xBB\xBF"
                                   "a"),
              Lines{L"a"});
    EXPECT_EQ(description::linesOf(std::string_view("\xFF\xFE"
                                                    "a\0\n\0b\0",
                                                    8)),
              (Lines{L"a", L"b"}));
    EXPECT_EQ(description::linesOf(std::string_view("\xFE\xFF"
                                                    "\0a\x20\xAC",
                                                    6)),
              Lines{L"a\u20AC"});
    EXPECT_EQ(description::linesOf(std::string_view("\xFF\xFE"
                                                    "a\0b",
                                                    5)),
              Lines{L"a"});
}

TEST(BesideFile, StandsInTheFolderOfTheOther) {
    EXPECT_EQ(description::besideFile("a/b/machine.txt", "x.reg"), "a/b/x.reg");
    EXPECT_EQ(description::besideFile("machine.txt", "x.reg"), "x.reg");
    EXPECT_EQ(description::besideFile("a/machine.txt", "/x.reg"), "/x.reg");
    EXPECT_EQ(description::besideFile("sample:machine.txt", "x.reg"), "sample:x.reg");
}

TEST(RealFiles, TellsWhyAFileCannotBeRead) {
    const TemporaryDirectory here;
    std::filesystem::create_directory("d");
    std::string why;
    EXPECT_FALSE(description::RealFiles().read("d", why));
    EXPECT_EQ(why, "Is a directory");
    EXPECT_FALSE(description::RealFiles().read("none", why));
    EXPECT_EQ(why, "No such file or directory");
    EXPECT_FALSE(description::RealFiles().read("sample:none", why));
    EXPECT_EQ(why, "the sample has no such file");
    std::ofstream("long") << std::string(100000, 'x');
    EXPECT_EQ(description::RealFiles().read("long", why)->size(), 100000U);
}
