#include "runtime/admin/config_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::wstring> linesIn(std::string_view bytes) {
    ConfigLines lines(bytes);
    std::vector<std::wstring> texts;
    ConfigLine line;
    while (lines.next(line))
        texts.push_back(line.text);
    EXPECT_EQ(line.number, texts.size());
    return texts;
}

/// The line whose text is refused; 0 when none is.
std::size_t refusedLine(std::string_view bytes) {
    ConfigLines lines(bytes);
    ConfigLine line;
    try {
        while (lines.next(line)) {
        }
        return 0;
    } catch (const ConfigMistake& mistake) {
        EXPECT_FALSE(mistake.text.IsEmpty());
        return line.number;
    }
}

using Texts = std::vector<std::wstring>;
using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(ConfigLines, EndInLfCrLfOrCr) {
    EXPECT_EQ(linesIn("a\nb\r\nc\rd"), (Texts{L"a", L"b", L"c", L"d"}));
    EXPECT_EQ(linesIn("a\n"), (Texts{L"a"}));
    EXPECT_EQ(linesIn("\n\r\n\r\r"), (Texts{L"", L"", L"", L""}));
    EXPECT_EQ(linesIn("a\n\rb"), (Texts{L"a", L"", L"b"}));
}

TEST(ConfigLines, AnEmptyFileHasNone) {
    EXPECT_EQ(linesIn(""), Texts());
    EXPECT_EQ(linesIn("\xEF\xBB\xBF"), Texts());
    EXPECT_EQ(linesIn("\xFF\xFE"), Texts());
    EXPECT_EQ(linesIn("\xFE\xFF"), Texts());
}

TEST(ConfigLines, ReadUtf8WithAndWithoutMark) {
    EXPECT_EQ(linesIn("M\xC3\xBCller\n"), (Texts{L"M\u00FCller"}));
    EXPECT_EQ(linesIn("\xEF\xBB\xBFM\xC3\xBCller\n"), (Texts{L"M\u00FCller"}));
    EXPECT_EQ(linesIn("\xF0\x9F\x98\x80"),
              (Texts{{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}}));
}

TEST(ConfigLines, ReadUtf16OfBothOrders) {
    EXPECT_EQ(linesIn("\xFF\xFE\x61\x00\x0D\x00\x0A\x00\xFC\x00\x0A\x00"sv), (Texts{L"a", L"\u00FC"}));
    EXPECT_EQ(linesIn("\xFE\xFF\x00\x61\x00\x0D\x00\x0A\x00\xFC\x00\x0A"sv), (Texts{L"a", L"\u00FC"}));
    // U+0A0D and U+0D0A hold the bytes of line ends, but are none.
    EXPECT_EQ(linesIn("\xFF\xFE\x0D\x0A\x0A\x0D"sv), (Texts{{wchar_t{0x0A0D}, wchar_t{0x0D0A}}}));
}

TEST(ConfigLines, RefuseIllFormedUtf8InItsLine) {
    EXPECT_EQ(refusedLine("a\nb\nM\xFCller\n"), 3U);
    EXPECT_EQ(refusedLine("\xC0\xAF"), 1U);
    EXPECT_EQ(refusedLine("\xED\xA0\x80"), 1U);
    EXPECT_EQ(refusedLine("a\n\xE2\x82"), 2U);
    EXPECT_EQ(refusedLine("\xF4\x90\x80\x80"), 1U);
    EXPECT_EQ(refusedLine("\xEF\xBF\xBD"), 0U);  // U+FFFD itself is a character like others
}

TEST(ConfigLines, RefuseIllFormedUtf16InItsLine) {
    EXPECT_EQ(refusedLine("\xFF\xFE\x61\x00\x0A\x00\x3D\xD8\x61\x00"sv), 2U);  // a high surrogate alone
    EXPECT_EQ(refusedLine("\xFF\xFE\x00\xDE"sv), 1U);                          // a low surrogate alone
    EXPECT_EQ(refusedLine("\xFF\xFE\x61\x00\x0A\x00\x61"sv), 2U);              // half a unit at the end
    EXPECT_EQ(refusedLine("\xFE\xFF\x00\x61\x00\x0A\x00"sv), 2U);
}

TEST(ConfigLines, RefuseNulAndOtherControlCharacters) {
    EXPECT_EQ(refusedLine("a\nb\0c"sv), 2U);
    EXPECT_EQ(refusedLine("u\0s\0e\0r\0"sv), 1U);  // UTF-16 without mark
    EXPECT_EQ(refusedLine("\xFF\xFE\x00\x00\x61\x00\x00\x00"sv), 1U);
    EXPECT_EQ(refusedLine("\x1B[2J"), 1U);
    EXPECT_EQ(refusedLine("a\x7F"), 1U);
    EXPECT_EQ(refusedLine("\xC2\x85"), 1U);
    EXPECT_EQ(refusedLine("\xE2\x80\xA8"), 1U);
    EXPECT_EQ(refusedLine("a\tb"), 0U);
}

TEST(ConfigLines, HandOutLinesBeforeAMistake) {
    ConfigLines lines("good\n\xFF");
    ConfigLine line;
    ASSERT_TRUE(lines.next(line));
    EXPECT_EQ(line.text, L"good");
    EXPECT_THROW(lines.next(line), ConfigMistake);
    EXPECT_EQ(line.number, 2U);
}

TEST(QuotedText, IsShortenedBetweenCharacters) {
    EXPECT_EQ(quotedText(L""), L"\"\"");
    EXPECT_EQ(quotedText(std::wstring(60, L'x')), (L"\"" + std::wstring(60, L'x') + L"\"").c_str());
    EXPECT_EQ(quotedText(std::wstring(61, L'x')), (L"\"" + std::wstring(60, L'x') + L"...\"").c_str());
    std::wstring text(59, L'x');
    text += {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(quotedText(text), (L"\"" + std::wstring(59, L'x') + L"...\"").c_str());
}

}  // namespace
