/// Memberships of whole lists, and the lists behind them, over the made-up network library.

#include <cstdio>

#include "runtime/host/sid_text.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVUser.h"
#include "tests/runtime/util/account_names.h"
#include "tests/windows/made_up/made_up.h"

namespace {

using Names = std::vector<std::wstring>;

/// Groups of every kind, with members of every kind. "Implicit" is one of which the members do not tell.
const std::string someGroups =
    "[global groups]\nDomain Users = *\nStaff S-1-5-21-11-22-33-4002 = user00003, user00004, Unused\n"
    "Unused = user00006\n[domain groups]\nEverybody S-1-5-21-11-22-33-3001 = Domain Users\n"
    "Readers S-1-5-21-11-22-33-3002 = S-1-5-21-11-22-33-4000000, Staff, user00009\n"
    "Writers S-1-5-21-11-22-33-3003 = user00004, user00005\nNobody S-1-5-21-11-22-33-3004 =\n";

std::string withUsers(int users) {
    return member + "[domain users]\ngenerate users = " + std::to_string(users) +
           " user%05d\ngenerate users = " + std::to_string(users / 10) + " PC%05d$\n" + someGroups;
}

class Memberships : public MadeUp {
protected:
    void TearDown() override {
        deleteElements(m_users);
        QVDomainController::stop();
        MadeUp::TearDown();
    }

    /// Of the user at `index` of the list.
    static Names expectedGroups(int index) {
        const int user = index + 1;
        Names names{L"CORP\\Everybody"};
        if (user == 3 || user == 4 || user == 9) names.push_back(L"CORP\\Readers");
        if (user == 4 || user == 5) names.push_back(L"CORP\\Writers");
        return names;
    }

    void listUsers() {
        QVDomainController::start();
        ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    }

    static Names groupsOf(QVUser& user) { return domainLocalGroupsOf(user); }

    OwnedArray<QVUser> m_users;
};

TEST_F(Memberships, CostCallsByPagesAndGroups) {
    constexpr long users = 25000, groupCount = 7, forEachGroup = 2, forAll = 20;
    // Machine accounts fill pages of the list as well.
    constexpr long accounts = users + users / 10;
    describe(withUsers(users));
    const long before = remoteCalls();
    listUsers();
    ASSERT_EQ(m_users.GetSize(), users);
    const long forTheList = remoteCalls() - before;
    for (int i = 0; i < m_users.GetSize(); ++i)
        ASSERT_EQ(groupsOf(*m_users[i]), expectedGroups(i)) << i;
    const long all = remoteCalls() - before;
    EXPECT_LE(all, accounts / 100 + forEachGroup * groupCount + forAll);
    std::printf("%ld users, %ld groups: %ld remote calls, of which %ld for the list\n", users, groupCount,
                all, forTheList);
}

TEST_F(Memberships, AreTheSameAsAskedForAlone) {
    describe(withUsers(30) + "[domain]\npage size = 1\nmember page size = 2\n");
    listUsers();
    for (int i = 0; i < m_users.GetSize(); ++i) {
        const auto alone = host::localGroupsOf(controller, m_users[i]->account());
        ASSERT_TRUE(alone.found());
        Names names;
        for (const host::Account& group : alone.value)
            names.push_back(QVSid(group).fullName().units());
        const long before = remoteCalls();
        EXPECT_EQ(groupsOf(*m_users[i]), names);
        EXPECT_EQ(names, expectedGroups(i));
        if (i == 0) continue;
        EXPECT_EQ(remoteCalls(), before);
    }
}

TEST_F(Memberships, WhatTheMembersDoNotTellIsAskedForAlone) {
    // A server may count groups that list nobody: then the lists of members are not used.
    describe(withUsers(30), "NetLocalGroupGetMembers call 1 : error 1376\n");
    listUsers();
    for (int i = 0; i < m_users.GetSize(); ++i)
        EXPECT_EQ(groupsOf(*m_users[i]), expectedGroups(i));
}

TEST_F(Memberships, MembersThatCannotBeListedLeaveTheQuestionForEachAccount) {
    for (const std::string how : {"error 5", "null names", "null buffer", "stands still", "empty page"}) {
        deleteElements(m_users);
        QVDomainController::stop();
        describe(withUsers(30), "NetLocalGroupGetMembers : " + how + "\nNetGroupGetUsers : " + how + "\n");
        listUsers();
        for (int i = 0; i < m_users.GetSize(); ++i)
            EXPECT_EQ(groupsOf(*m_users[i]), expectedGroups(i)) << how;
    }
}

TEST_F(Memberships, AControllerThatIsLostForGoodIsNotAskedForEachAccount) {
    describe(withUsers(30), "NetLocalGroupGetMembers : error 1722\n");
    listUsers();
    // The first account is asked for alone, before the controller goes.
    EXPECT_EQ(groupsOf(*m_users[0]), expectedGroups(0));
    const long before = remoteCalls();
    for (int i = 1; i < m_users.GetSize(); ++i)
        EXPECT_EQ(groupsOf(*m_users[i]), Names{L"failed"});
    EXPECT_EQ(remoteCalls(), before);
}

TEST_F(Memberships, AWrongTotalIsNotBelieved) {
    describe(withUsers(30),
             "NetLocalGroupGetMembers : wrong total\nNetLocalGroupEnum : wrong total\n"
             "NetUserGetLocalGroups : wrong total\nNetGroupGetUsers : wrong total\n");
    listUsers();
    for (int i = 0; i < m_users.GetSize(); ++i)
        EXPECT_EQ(groupsOf(*m_users[i]), expectedGroups(i));
}

TEST_F(Memberships, GlobalGroupsAreListedInPagesWithSids) {
    describe(withUsers(30) + "[domain]\npage size = 2\n");
    host::Answer<host::Done> ended;
    const std::vector<host::Account> listed = list(host::globalGroups, ended);
    EXPECT_EQ(ended.status, host::Status::found);
    ASSERT_EQ(listed.size(), 3U);
    EXPECT_EQ(listed[1].domain, L"CORP");
    EXPECT_EQ(listed[1].name, L"Staff");
    EXPECT_EQ(host::sidText(listed[1].sid), L"S-1-5-21-11-22-33-4002");
}

TEST_F(Memberships, MembersAreKnownBySidOrByName) {
    describe(withUsers(30));
    const auto local = host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0);
    ASSERT_TRUE(local.found());
    ASSERT_EQ(local.value.items.size(), 3U);
    EXPECT_EQ(host::sidText(local.value.items[0].sid), L"S-1-5-21-11-22-33-4000000");
    EXPECT_EQ(host::sidText(local.value.items[1].sid), L"S-1-5-21-11-22-33-4002");
    EXPECT_EQ(host::sidText(local.value.items[2].sid), L"S-1-5-21-11-22-33-10000009");
    EXPECT_TRUE(local.value.items[2].name.empty());
    const auto global = host::globalGroupMembers(controller, {L"CORP", L"Staff", {}}, 0);
    ASSERT_TRUE(global.found());
    ASSERT_EQ(global.value.items.size(), 3U);
    EXPECT_EQ(global.value.items[0].domain, L"CORP");
    EXPECT_EQ(global.value.items[0].name, L"user00003");
    EXPECT_TRUE(global.value.items[0].sid.empty());
    describe(withUsers(30) + "[domain]\nmember page size = 2\n");
    const auto first = host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0);
    EXPECT_EQ(first.value.items.size(), 2U);
    EXPECT_TRUE(first.value.more);
    EXPECT_EQ(
        host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, first.value.next).value.items.size(),
        1U);
}

TEST_F(Memberships, AGroupThatVanishedIsNotThere) {
    describe(withUsers(30));
    EXPECT_TRUE(host::localGroupMembers(controller, {L"CORP", L"Gone", {}}, 0).isMissing());
    EXPECT_TRUE(host::globalGroupMembers(controller, {L"CORP", L"Gone", {}}, 0).isMissing());
    describe(withUsers(30), "remote : error 5\n");
    EXPECT_EQ(host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0).status,
              host::Status::refused);
    describe(withUsers(30), "remote : error 1722\n");
    EXPECT_EQ(host::globalGroupMembers(controller, {L"CORP", L"Staff", {}}, 0).status, host::Status::failed);
}

}  // namespace
