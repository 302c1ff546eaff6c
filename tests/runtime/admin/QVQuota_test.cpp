#include "runtime/admin/QVQuota.h"

#include <gtest/gtest.h>

namespace {

TEST(QVQuota, ShowsItself) {
    EXPECT_EQ(QVQuota::ofBytes(524288000).mf_toString(1), L"500 MB (524288000 bytes)");
    EXPECT_EQ(QVQuota::ofBytes(1610612736).mf_toString(1), L"1.5 GB (1610612736 bytes)");
    EXPECT_EQ(QVQuota::ofBytes(0).mf_toString(1), L"0 bytes");
    EXPECT_EQ(QVQuota::ofBytes(1).mf_toString(1), L"1 byte");
    EXPECT_EQ(QVQuota::unlimited().mf_toString(1), L"unlimited");
    EXPECT_EQ(QVQuota().mf_toString(1), L"no quota");
}

TEST(QVQuota, UnlimitedIsTheLargest) {
    EXPECT_LT(QVQuota(), QVQuota::ofBytes(0));
    EXPECT_LT(QVQuota::ofBytes(0), QVQuota::ofBytes(1));
    EXPECT_LT(QVQuota::ofBytes(18446744073709551615U), QVQuota::unlimited());
    EXPECT_EQ(QVQuota::unlimited(), QVQuota::unlimited());
}

}  // namespace
