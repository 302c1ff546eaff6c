#include "runtime/host/letter_case.h"

#include <gtest/gtest.h>

#include "runtime/host/os.h"

namespace {

constexpr unsigned int units = 0x10000;

wchar_t unit(unsigned int value) {
    return static_cast<wchar_t>(value);
}

TEST(LetterCase, KnowsCapitalsOfEveryScript) {
    const struct {
        wchar_t small, capital;
    } letters[] = {
        {L'a', L'A'},     {L'z', L'Z'}, {0x00E4, 0x00C4},  // ä
        {0x00FF, 0x0178},                                  // ÿ
        {0x0142, 0x0141},                                  // ł
        {0x017E, 0x017D},                                  // ž
        {0x03C9, 0x03A9},                                  // ω
        {0x044F, 0x042F},                                  // я
        {0x04C2, 0x04C1},                                  // ӂ
        {0x04CF, 0x04C0},                                  // ӏ
        {0x0527, 0x0526},                                  // ԧ
        {0x0561, 0x0531},                                  // Armenian
        {0x1EA1, 0x1EA0},                                  // ạ
        {0x1EF9, 0x1EF8},                                  // ỹ
        {0x1F00, 0x1F08},                                  // Greek with a mark
        {0x24D0, 0x24B6},                                  // circled
        {0x2C30, 0x2C00},                                  // Glagolitic
        {0xFF41, 0xFF21},                                  // full width
    };
    for (const auto& [small, capital] : letters) {
        EXPECT_EQ(host::upperCase(small), capital) << std::hex << static_cast<unsigned int>(small);
        EXPECT_EQ(host::lowerCase(capital), small) << std::hex << static_cast<unsigned int>(capital);
        EXPECT_EQ(host::upperCase(capital), capital);
        EXPECT_EQ(host::lowerCase(small), small);
    }
}

TEST(LetterCase, LeavesAloneWhatHasNoWayBack) {
    // Sharp s, dotted I, dotless i, long s, micro sign, final sigma, a letter without the other case, a
    // surrogate.
    for (const unsigned int alone :
         {0x00DFU, 0x0130U, 0x0131U, 0x017FU, 0x00B5U, 0x03C2U, 0x0138U, 0xD801U, 0x31U})
        EXPECT_EQ(host::upperCase(unit(alone)), unit(alone)) << std::hex << alone;
    for (const unsigned int alone : {0x0130U, 0x1E9EU, 0x2126U, 0x212AU, 0x212BU, 0xDC01U, 0x00D7U})
        EXPECT_EQ(host::lowerCase(unit(alone)), unit(alone)) << std::hex << alone;
}

TEST(LetterCase, LeadsThereAndBack) {
    for (unsigned int value = 0; value < units; ++value) {
        const wchar_t upper = host::upperCase(unit(value)), lower = host::lowerCase(unit(value));
        EXPECT_TRUE(upper == unit(value) || lower == unit(value)) << std::hex << value;
        EXPECT_EQ(host::lowerCase(upper), host::lowerCase(unit(value))) << std::hex << value;
        EXPECT_EQ(host::upperCase(lower), host::upperCase(unit(value))) << std::hex << value;
    }
}

TEST(LetterCase, ComparesAndHashesNames) {
    EXPECT_EQ(host::folded(L"CORP\\\u0141ukasz 07"), L"corp\\\u0142ukasz 07");
    EXPECT_TRUE(host::equalIgnoringCase(L"NGUY\u1EC4N", L"nguy\u1EC5n"));
    EXPECT_FALSE(host::equalIgnoringCase(L"a", L"ab"));
    EXPECT_FALSE(host::equalIgnoringCase(L"stra\u00DFe", L"strasse"));
    EXPECT_EQ(host::hashIgnoringCase(L"NGUY\u1EC4N"), host::hashIgnoringCase(L"nguy\u1EC5n"));
    EXPECT_NE(host::hashIgnoringCase(L"ab"), host::hashIgnoringCase(L"ba"));
    EXPECT_EQ(host::hashIgnoringCase(L"ab"), host::hashIgnoringCase(L"b", host::hashIgnoringCase(L"a")));
}

#ifdef _WIN32
/// Units that the system sees otherwise. Another version of Windows may know fewer letters than the table
/// does: what it does not know would stand here, with its reason.
constexpr unsigned int exceptions[] = {0xFFFFFFFF};

bool isException(unsigned int value) {
    for (const unsigned int known : exceptions) {
        if (known == value) return true;
    }
    return false;
}

TEST(LetterCase, IsTheSystemsOwnForEveryUnit) {
    const auto upcase = reinterpret_cast<WCHAR(WINAPI*)(WCHAR)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlUpcaseUnicodeChar")));
    ASSERT_NE(upcase, nullptr);
    for (unsigned int value = 0; value < units; ++value) {
        if (isException(value)) continue;
        const wchar_t one = unit(value), upper = host::upperCase(one), lower = host::lowerCase(one);
        EXPECT_EQ(upper, upcase(one)) << std::hex << value;
        EXPECT_EQ(CompareStringOrdinal(&one, 1, &upper, 1, TRUE), CSTR_EQUAL) << std::hex << value;
        EXPECT_EQ(CompareStringOrdinal(&one, 1, &lower, 1, TRUE), CSTR_EQUAL) << std::hex << value;
    }
}
#endif

}  // namespace
