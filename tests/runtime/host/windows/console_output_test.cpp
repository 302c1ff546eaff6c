/// Console output into real files.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "runtime/host/windows/console_output.h"
#include "runtime/host/windows/handle.h"
#include "tests/files.h"

namespace {

using host::windows::ConsoleOutput;
using host::windows::FileHandle;
using host::windows::wholeCharacters;

constexpr UINT westernEuropean = 1252;
constexpr UINT unitedStates = 437;

class HostConsole : public testing::Test {
protected:
    void SetUp() override {
        m_file = FileHandle(CreateFileW(L"out", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(m_file);
    }

    static std::string written() { return fileBytes("out"); }
    std::string bytesOf(UINT codePage, std::wstring_view text) const {
        const auto output = std::make_unique<ConsoleOutput>(m_file.get(), codePage);
        EXPECT_TRUE(output->write(text));
        EXPECT_TRUE(output->flush());
        return written();
    }

    TemporaryDirectory m_here;
    FileHandle m_file;
};

TEST_F(HostConsole, WritesInTheReadersCodePage) {
    EXPECT_EQ(bytesOf(westernEuropean, L"caf\u00e9\r\n"), "caf\xE9\r\n");
}

TEST_F(HostConsole, WritesInTheOldCodePageOfConsoles) {
    EXPECT_EQ(bytesOf(unitedStates, L"caf\u00e9"), "caf\x82");
}

TEST_F(HostConsole, WritesUtf8WhereTheCodePageIsUnknown) {
    EXPECT_EQ(bytesOf(54321, L"\u20ac \U0001F600"), "\xE2\x82\xAC \xF0\x9F\x98\x80");
}

TEST_F(HostConsole, NeverTearsACharacterApart) {
    // One unit in front, so that every block would end in the middle of a pair.
    std::wstring text = L"x";
    std::string expected = "x";
    for (int i = 0; i < 100'000; ++i) {
        text += L"\U0001F600";
        expected += "\xF0\x9F\x98\x80";
    }
    EXPECT_TRUE(bytesOf(CP_UTF8, text) == expected);
}

TEST_F(HostConsole, WritesIntoAFileInBlocks) {
    const auto output = std::make_unique<ConsoleOutput>(m_file.get(), CP_UTF8);
    EXPECT_TRUE(output->write(L"not yet"));
    EXPECT_EQ(written(), "");
    EXPECT_TRUE(output->write(std::wstring(65536, L'a')));
    EXPECT_EQ(written().size(), 65536U);
    EXPECT_TRUE(output->flush());
    EXPECT_EQ(written(), "not yet" + std::string(65536, 'a'));
}

TEST_F(HostConsole, AfterAFailureNothingIsTriedAnyMore) {
    const FileHandle readOnly(CreateFileW(L"out", GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(readOnly);
    const auto output = std::make_unique<ConsoleOutput>(readOnly.get(), CP_UTF8);
    EXPECT_TRUE(output->write(L"kept back, so far"));
    EXPECT_FALSE(output->flush());
    EXPECT_FALSE(output->write(L"more"));
    EXPECT_FALSE(output->flush());
    EXPECT_EQ(written(), "");
}

TEST_F(HostConsole, WithoutAnOutputEveryWriteFails) {
    const auto none = std::make_unique<ConsoleOutput>(nullptr, CP_UTF8);
    EXPECT_FALSE(none->write(L"text"));
    const auto invalid = std::make_unique<ConsoleOutput>(INVALID_HANDLE_VALUE, CP_UTF8);
    EXPECT_FALSE(invalid->flush());
}

TEST_F(HostConsole, CountsWholeCharacters) {
    EXPECT_EQ(wholeCharacters(L"abc", 4), 3U);
    EXPECT_EQ(wholeCharacters(L"abcd", 2), 2U);
    EXPECT_EQ(wholeCharacters(L"a\U0001F600", 2), 1U);
    EXPECT_EQ(wholeCharacters(L"a\U0001F600", 3), 3U);
    EXPECT_EQ(wholeCharacters(L"\xD83D\xD83D\xD83D", 2), 2U);
}

}  // namespace
