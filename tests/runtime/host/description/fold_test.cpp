#include "runtime/host/description/fold.h"

#include <gtest/gtest.h>

namespace {

TEST(Folded, MakesOneCase) {
    EXPECT_EQ(description::folded(L"ABCxyz019"), L"abcxyz019");
    EXPECT_EQ(description::folded(L"\u00C4\u00D7\u00DF\u0178\u0100\u0141\u0152"),
              L"\u00E4\u00D7\u00DF\u00FF\u0101\u0142\u0153");
    EXPECT_EQ(description::folded(L"\u0130\u0131\u0138\u017F"), L"\u0130\u0131\u0138\u017F");
    EXPECT_EQ(description::folded(L"\u0410\u042F\u0401\u0391\u03A9"), L"\u0430\u044F\u0451\u03B1\u03C9");
    EXPECT_TRUE(description::equalFolded(L"A", L"a"));
    EXPECT_FALSE(description::equalFolded(L"A", L"ab"));
}

}  // namespace
