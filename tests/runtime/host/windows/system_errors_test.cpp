#include <gtest/gtest.h>

#include <cwctype>

#include "runtime/host/host.h"

namespace {

TEST(HostSystemErrors, ErrorTextsAreOneLine) {
    for (const std::uint32_t code : {2U, 5U, 21U, 1018U, 1355U, 2221U}) {
        const std::wstring text = host::systemErrorText(code);
        EXPECT_FALSE(text.empty());
        EXPECT_NE(text, L"unknown error") << code;
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos);
        EXPECT_FALSE(std::iswspace(static_cast<std::wint_t>(text.back())));
    }
    EXPECT_EQ(host::systemErrorText(0x2EEEEEEE), L"unknown error");
}

}  // namespace
