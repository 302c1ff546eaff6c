#include "runtime/host/description/source.h"

#include <fstream>

#include "runtime/host/description/fold.h"
#include "runtime/host/description/scanner.h"
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

TEST(Folded, MakesOneCase) {
    EXPECT_EQ(description::folded(L"ABCxyz019"), L"abcxyz019");
    EXPECT_EQ(description::folded(L"\u00C4\u00D7\u00DF\u0178\u0100\u0141\u0152"),
              L"\u00E4\u00D7\u00DF\u00FF\u0101\u0142\u0153");
    EXPECT_EQ(description::folded(L"\u0130\u0131\u0138\u017F"), L"\u0130\u0131\u0138\u017F");
    EXPECT_EQ(description::folded(L"\u0410\u042F\u0401\u0391\u03A9"), L"\u0430\u044F\u0451\u03B1\u03C9");
    EXPECT_TRUE(description::equalFolded(L"A", L"a"));
    EXPECT_FALSE(description::equalFolded(L"A", L"ab"));
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
