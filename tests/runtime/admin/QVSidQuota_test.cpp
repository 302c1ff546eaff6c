#include "runtime/admin/QVSidQuota.h"

#include <gtest/gtest.h>

namespace {

TEST(QVSidQuota, TellsWhatItWasMadeOf) {
    QVSidQuota entry({L"CORP", L"ann", {}}, QVQuota::ofBytes(7), false);
    EXPECT_EQ(entry.mf_getSid().mf_getFullName(), L"CORP\\ann");
    EXPECT_EQ(entry.sid().fullName(), L"CORP\\ann");
    EXPECT_EQ(entry.mf_getQuota(), QVQuota::ofBytes(7));
    EXPECT_FALSE(entry.asked());
    entry.quota() = QVQuota::unlimited();
    EXPECT_EQ(entry.mf_getQuota(), QVQuota::unlimited());
}

}  // namespace
