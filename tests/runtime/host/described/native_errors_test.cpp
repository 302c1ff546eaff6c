#include "runtime/host/described/native_errors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

TEST(NativeErrors, HaveTheCodesOfWindows) {
    EXPECT_EQ(described::windowsCodeOf(ENOENT), 2U);
    EXPECT_EQ(described::windowsCodeOf(ENOTDIR), 3U);
    EXPECT_EQ(described::windowsCodeOf(EACCES), 5U);
    EXPECT_EQ(described::windowsCodeOf(ENOSPC), 112U);
    EXPECT_EQ(described::windowsCodeOf(ENAMETOOLONG), 206U);
    EXPECT_EQ(described::windowsCodeOf(-1), 31U);
}

TEST(NativeErrors, SomeRefuse) {
    EXPECT_TRUE(described::nativeCause(EPERM).refused);
    EXPECT_EQ(described::nativeCause(EPERM).code, 5U);
    EXPECT_TRUE(described::nativeCause(ENOSPC).any);
    EXPECT_FALSE(described::nativeCause(ENOSPC).refused);
}

}  // namespace
