#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace {

using host::Sid;
using host::Status;

Sid administrators() {
    Sid sid;
    sid.authority = SECURITY_NT_AUTHORITY;
    sid.subAuthorityCount = 2;
    sid.subAuthorities[0] = SECURITY_BUILTIN_DOMAIN_RID;
    sid.subAuthorities[1] = DOMAIN_ALIAS_RID_ADMINS;
    return sid;
}

TEST(HostAccounts, SidAndNameLeadToEachOther) {
    const auto bySid = host::accountOfSid(administrators());
    ASSERT_TRUE(bySid.found());
    EXPECT_FALSE(bySid.value.name.empty());
    EXPECT_FALSE(bySid.value.domain.empty());
    const auto byName = host::accountOfName(bySid.value.domain + L"\\" + bySid.value.name);
    ASSERT_TRUE(byName.found());
    EXPECT_TRUE(byName.value.sid == administrators());
    EXPECT_EQ(byName.value.name, bySid.value.name);
}

TEST(HostAccounts, WhatNobodyKnowsIsMissing) {
    Sid unknown = administrators();
    unknown.subAuthorities[1] = 987654;
    EXPECT_EQ(host::accountOfSid(unknown).status, Status::missing);
    EXPECT_EQ(host::accountOfName(L"KvxTestNobody").status, Status::missing);
}

}  // namespace
