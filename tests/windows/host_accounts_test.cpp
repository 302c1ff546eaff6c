/// Accounts, membership and cluster of the machine on which the tests run.

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "runtime/host/paging.h"
#include "tests/runtime/host/domain_named.h"

namespace {

using host::Account;
using host::AccountSource;
using host::Sid;
using host::Status;

std::vector<Account> allUsers() {
    std::vector<Account> found;
    const auto ended = host::readPages<Account>([](std::uint64_t cursor) { return host::users({}, cursor); },
                                                [&](Account user) { found.push_back(std::move(user)); });
    EXPECT_EQ(ended.status, Status::found);
    return found;
}

TEST(HostAccounts, ThisComputerHasUsersWithDomainAndSid) {
    const std::vector<Account> users = allUsers();
    ASSERT_FALSE(users.empty());
    std::set<std::wstring> names;
    for (const Account& user : users) {
        EXPECT_FALSE(user.domain.empty());
        EXPECT_FALSE(user.name.empty());
        EXPECT_GE(user.sid.subAuthorityCount, 2);
        names.insert(user.name);
    }
    EXPECT_EQ(names.size(), users.size());
}

TEST(HostAccounts, GroupsAreAnsweredForAUser) {
    const std::vector<Account> users = allUsers();
    ASSERT_FALSE(users.empty());
    for (const Account& user : users) {
        const auto groups = host::localGroupsOf({}, user);
        EXPECT_TRUE(groups.found() || groups.unanswered());
        for (const Account& group : groups.value)
            EXPECT_FALSE(group.name.empty());
    }
}

TEST(HostAccounts, LocalGroupsCanBeListed) {
    std::vector<Account> groups;
    const auto ended =
        host::readPages<Account>([](std::uint64_t cursor) { return host::localGroups({}, cursor); },
                                 [&](Account group) { groups.push_back(std::move(group)); });
    EXPECT_EQ(ended.status, Status::found);
    for (const Account& group : groups)
        EXPECT_FALSE(group.name.empty());
}

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

TEST(HostAccounts, MembershipNamesADomainOrAWorkgroup) {
    const auto answer = host::membership();
    ASSERT_TRUE(answer.found());
    EXPECT_FALSE(answer.value.domainController && !answer.value.joined);
    EXPECT_TRUE(!answer.value.joined || !answer.value.domainName.empty());
}

TEST(HostAccounts, ADomainThatIsNotThereHasNoController) {
    if (host::membership().value.joined) GTEST_SKIP() << "would search the network";
    const auto answer = host::domainController(domainNamed(L"KVXTESTNONE"), true, false);
    EXPECT_TRUE(answer.unanswered());
    EXPECT_NE(answer.failure.code, 0U);
}

TEST(HostAccounts, ThisComputerIsInAClusterWithNodesOrInNone) {
    const auto answer = host::cluster();
    if (answer.found()) {
        EXPECT_FALSE(answer.value.nodes.empty());
    } else {
        EXPECT_TRUE(answer.isMissing()) << answer.failure.code;
    }
}

}  // namespace
