/// What holds for the computer on which the tests run, whichever it is.

#include "runtime/base/QVSystem.h"

#include <gtest/gtest.h>

#include <vector>

#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"

namespace {

std::vector<std::wstring> linesOf(const CString& text) {
    std::vector<std::wstring> lines;
    std::wstring rest = text.units();
    for (std::size_t end; (end = rest.find(L"\r\n")) != std::wstring::npos; rest.erase(0, end + 2)) {
        lines.push_back(rest.substr(0, end));
    }
    lines.push_back(rest);
    return lines;
}

TEST(QVSystemTest, EveryLineOfTheFactsIsIndentedAndTellsSomething) {
    const std::vector<std::wstring> lines = linesOf(QVSystem::mf_toString(L"<in>"));
    EXPECT_GE(lines.size(), 7U);
    for (const std::wstring& line : lines) {
        EXPECT_EQ(line.substr(0, 4), L"<in>");
        EXPECT_GT(line.size(), std::size_t{4 + 17}) << line;
        EXPECT_EQ(line.find_first_of(L"\r\n"), std::wstring::npos);
    }
}

TEST(QVSystemTest, FactsComeInTheirOrder) {
    const std::wstring text = QVSystem::mf_toString(L"").units();
    std::size_t at = 0;
    for (const wchar_t* label : {L"Computer name:", L"Windows:", L"Version:", L"Processors:", L"Memory:",
                                 L"Started:", L"IP addresses:"}) {
        const std::size_t found = text.find(label, at);
        ASSERT_NE(found, std::wstring::npos) << CString(label).units() << text;
        at = found;
    }
    EXPECT_TRUE(holds(text, L"Computer name:   " + host::system().value.computerName));
}

TEST(QVSystemTest, TheVersionIsOneOfWindows) {
    const std::wstring text = QVSystem::mf_getSystemVersionString().units();
    EXPECT_LT(text.find(L"Windows "), text.find(L", version ")) << text;
    EXPECT_TRUE(holds(text, L", version " + std::to_wstring(host::system().value.major) + L"."));
    EXPECT_EQ(text.back(), L')');
    EXPECT_NE(QVSystem::mf_isAtLeastW2003(0), 0);
    EXPECT_EQ(QVSystem::mf_is32Bit(), 0);
}

TEST(QVSystemTest, TheCodePageIsANumberWithItsNameIfItHasOne) {
    const std::wstring text = QVSystem::mf_getDefaultAnsiCodepage().units();
    const std::wstring number = text.substr(0, text.find(L' '));
    EXPECT_EQ(number.find_first_not_of(L"0123456789"), std::wstring::npos) << text;
    EXPECT_GE(number.size(), 3U) << text;
    EXPECT_LE(number.size(), 5U) << text;
    const std::wstring name = text.substr(number.size());
    if (name.empty()) return;
    EXPECT_EQ(name.substr(0, 2), L" (");
    EXPECT_EQ(name.back(), L')');
}

}  // namespace
