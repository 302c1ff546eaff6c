
#include "runtime/host/described/os_functions.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

/// What one call writes, and its result.
struct Written {
    std::string bytes;
    int result = 0;
};

template <class... Inserts>
Written written(const wchar_t* format, Inserts... inserts) {
    const TemporaryDirectory here;
    std::FILE* stream = std::fopen("out", "wb");
    Written output;
    output.result = fwprintf_s(stream, format, inserts...);
    std::fclose(stream);
    output.bytes = fileBytes("out");
    return output;
}

}  // namespace

TEST(TextStream, LineFeedsAreWrittenAsTwoBytes) {
    const Written output = written(L"%s", L"a\r\nb\n");
    EXPECT_EQ(output.bytes, "a\r\r\nb\r\n");
    EXPECT_EQ(output.result, 5);
}

TEST(TextStream, CharactersUpToFFAreOneByte) {
    EXPECT_EQ(written(L"%s", L"\u00E4\u00FF\x80").bytes, "\xE4\xFF\x80");
}

TEST(TextStream, TheTextEndsAtACharacterWithoutNarrowForm) {
    const Written output = written(L"<%s>", L"ab\u20ACcd");
    EXPECT_EQ(output.bytes, "<ab");
    EXPECT_LT(output.result, 0);
    EXPECT_EQ(written(L"a\u0100b").bytes, "a");
    const std::wstring face = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(written(L"x%s", face.c_str()).bytes, "x");
}

TEST(TextStream, KnowsPercentAndNull) {
    EXPECT_EQ(written(L"100%% %s %s", L"%s", L"b").bytes, "100% %s b");
    EXPECT_EQ(written(L"%s", static_cast<const wchar_t*>(nullptr)).bytes, "(null)");
    EXPECT_EQ(written(L"").bytes, "");
    EXPECT_EQ(written(L"").result, 0);
}

TEST(TextStream, RefusesWhatItDoesNotKnow) {
    EXPECT_LT(written(L"a %d", 5).result, 0);
    EXPECT_EQ(written(L"a %d", 5).bytes, "");
    EXPECT_LT(written(L"50%").result, 0);
    EXPECT_LT(fwprintf_s(nullptr, L"a"), 0);
    EXPECT_LT(fwprintf_s(stdout, nullptr), 0);
}

TEST(TextStream, LongTextsAreWrittenWhole) {
    const std::wstring text(100000, L'\n');
    const Written output = written(L"%s.", text.c_str());
    EXPECT_EQ(output.bytes.size(), 200001U);
    EXPECT_EQ(output.result, 100001);
}

TEST(TextStream, AWriteThatFailsIsTold) {
    std::FILE* full = std::fopen("/dev/full", "wb");
    if (full == nullptr) GTEST_SKIP() << "there is no /dev/full here";
    std::setvbuf(full, nullptr, _IONBF, 0);
    EXPECT_LT(fwprintf_s(full, L"%s", L"text"), 0);
    std::fclose(full);
}
