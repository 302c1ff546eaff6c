#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(SystemErrors, ErrorTexts) {
    EXPECT_EQ(host::systemErrorText(5), L"Access is denied.");
    EXPECT_EQ(host::systemErrorText(2), L"The system cannot find the file specified.");
    EXPECT_EQ(host::systemErrorText(1722), L"The RPC server is unavailable.");
    EXPECT_EQ(host::systemErrorText(0), L"The operation completed successfully.");
    EXPECT_EQ(host::systemErrorText(4711), L"unknown error");
    EXPECT_EQ(host::systemErrorText(0xFFFFFFFFU), L"unknown error");
}

TEST(SystemErrors, EveryErrorTextIsFoundAndIsOneLine) {
    int known = 0;
    for (std::uint32_t code = 0; code < 11000; ++code) {
        const std::wstring text = host::systemErrorText(code);
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos) << code;
        EXPECT_FALSE(text.empty()) << code;
        if (text != L"unknown error") ++known;
    }
    EXPECT_GE(known, 60);
}

}  // namespace
