#include <gtest/gtest.h>

#include "runtime/base/QVString.h"

namespace {

struct Text {
    CString shown;
    const wchar_t* expected;
};

TEST(FilterTexts, EachInsertHasItsPlace) {
    const Text texts[] = {
        {QVString(3313, L"VALUE", L"KEY", L"REASON"),
         L"  The registry could not be asked for the minimum file size. Registry value:\r\n"
         L"    VALUE\r\n    in key KEY\r\n    REASON\r\n"},
        {QVString(3315, L"VALUE", L"KEY"),
         L"  The minimum file size is not set. Missing registry value:\r\n    VALUE\r\n    in key KEY\r\n"},
        {QVString(3316, L"VALUE", L"KEY", L"REASON"),
         L"  The minimum file size could not be read. Registry value:\r\n"
         L"    VALUE\r\n    in key KEY\r\n    REASON\r\n"},
        {QVString(3335, L"VALUE", L"KEY", L"REASON"),
         L"  The registry could not be asked for the file attribute filter. Registry\r\n  value:\r\n"
         L"    VALUE\r\n    in key KEY\r\n    REASON\r\n"},
    };
    for (const Text& text : texts)
        EXPECT_EQ(text.shown, text.expected);
}

}  // namespace
