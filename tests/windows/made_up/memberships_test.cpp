/// Memberships of whole lists, and the lists behind them, over the made-up network library.

#include <cstdio>

#include "made_up.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVUser.h"

namespace {

using Names = std::vector<std::wstring>;

class Memberships : public MadeUp {
protected:
    void SetUp() override {
        MadeUp::SetUp();
        set(L"KVX_ROLE", L"3");
        set(L"KVX_CONTROLLER", L"DC01");
    }
    void TearDown() override {
        deleteElements(m_users);
        QVDomainController::stop();
        MadeUp::TearDown();
    }

    /// A domain with groups of every kind, with members of every kind.
    void setGroups() {
        set(L"KVX_GLOBAL_GROUPS", L"Domain Users;Staff;Unused");
        set(L"KVX_MEMBERS_Domain Users", L"*");
        set(L"KVX_MEMBERS_Staff", L"user00003;user00004;Unused");
        set(L"KVX_MEMBERS_Unused", L"user00006");
        set(L"KVX_GROUPS", L"Everybody;Readers;Writers;Nobody");
        set(L"KVX_MEMBERS_Everybody", L"@Domain Users");
        set(L"KVX_MEMBERS_Readers", L"?;@Staff;user00009");
        set(L"KVX_MEMBERS_Writers", L"user00004;user00005");
    }

    static Names expectedGroups(int user) {
        Names names{L"CORP\\Everybody"};
        if (user == 3 || user == 4 || user == 9) names.push_back(L"CORP\\Readers");
        if (user == 4 || user == 5) names.push_back(L"CORP\\Writers");
        return names;
    }

    void listUsers() {
        QVDomainController::start();
        ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    }

    static Names groupsOf(QVUser& user) {
        QVArray<QVGroup*, QVGroup*> groups;
        Names names;
        if (!user.mf_getDomainLocalGroupList(groups)) return {L"failed"};
        for (int i = 0; i < groups.GetSize(); ++i)
            names.push_back(groups[i]->fullName().units());
        deleteElements(groups);
        return names;
    }

    QVArray<QVUser*, QVUser*> m_users;
};

TEST_F(Memberships, CostCallsByPagesAndGroups) {
    constexpr long users = 25000, groups = 7, forEachGroup = 2, forAll = 10;
    // Machine accounts fill pages of the list as well.
    constexpr long accounts = users + users / 10;
    set(L"KVX_USERS", L"25000");
    setGroups();
    const long before = remoteCalls();
    listUsers();
    ASSERT_EQ(m_users.GetSize(), users);
    const long forTheList = remoteCalls() - before;
    for (int i = 0; i < m_users.GetSize(); ++i)
        ASSERT_EQ(groupsOf(*m_users[i]), expectedGroups(i)) << i;
    const long all = remoteCalls() - before;
    EXPECT_LE(all, accounts / 100 + forEachGroup * groups + forAll);
    std::printf("%ld users, %ld groups: %ld remote calls, of which %ld for the list\n", users, groups, all,
                forTheList);
}

TEST_F(Memberships, AreTheSameAsAskedForAlone) {
    set(L"KVX_USERS", L"30");
    set(L"KVX_MEMBER_PAGE", L"2");
    set(L"KVX_PAGE", L"1");
    setGroups();
    listUsers();
    for (int i = 0; i < m_users.GetSize(); ++i) {
        const auto alone = host::localGroupsOf(controller, toAccount(*m_users[i]));
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
    set(L"KVX_USERS", L"30");
    setGroups();
    set(L"KVX_MEMBER_OF", L"Implicit");
    listUsers();
    for (int i = 0; i < m_users.GetSize(); ++i) {
        Names expected{L"CORP\\Implicit"};
        for (const std::wstring& name : expectedGroups(i))
            expected.push_back(name);
        EXPECT_EQ(groupsOf(*m_users[i]), expected);
    }
}

TEST_F(Memberships, MembersThatCannotBeListedLeaveTheQuestionForEachAccount) {
    for (const wchar_t* code : {L"5", L"1722"}) {
        deleteElements(m_users);
        QVDomainController::stop();
        set(L"KVX_USERS", L"30");
        setGroups();
        set(L"KVX_MEMBERS_ERROR", code);
        listUsers();
        for (int i = 0; i < m_users.GetSize(); ++i)
            EXPECT_EQ(groupsOf(*m_users[i]), expectedGroups(i));
    }
}

TEST_F(Memberships, GlobalGroupsAreListedInPagesWithSids) {
    setGroups();
    set(L"KVX_PAGE", L"2");
    host::Answer<host::Done> ended;
    const std::vector<host::Account> groups = list(host::globalGroups, ended);
    EXPECT_EQ(ended.status, host::Status::found);
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(groups[1].domain, L"CORP");
    EXPECT_EQ(groups[1].name, L"Staff");
    EXPECT_EQ(toText(groups[1].sid).units(), L"S-1-5-21-11-22-33-900001");
}

TEST_F(Memberships, MembersAreKnownBySidOrByName) {
    setGroups();
    const auto local = host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0);
    ASSERT_TRUE(local.found());
    ASSERT_EQ(local.value.items.size(), 3U);
    EXPECT_EQ(toText(local.value.items[0].sid).units(), L"S-1-5-21-11-22-33-4000000");
    EXPECT_EQ(toText(local.value.items[1].sid).units(), L"S-1-5-21-11-22-33-900001");
    EXPECT_EQ(toText(local.value.items[2].sid).units(), L"S-1-5-21-11-22-33-1009");
    EXPECT_TRUE(local.value.items[2].name.empty());
    const auto global = host::globalGroupMembers(controller, {L"CORP", L"Staff", {}}, 0);
    ASSERT_TRUE(global.found());
    ASSERT_EQ(global.value.items.size(), 3U);
    EXPECT_EQ(global.value.items[0].domain, L"CORP");
    EXPECT_EQ(global.value.items[0].name, L"user00003");
    EXPECT_TRUE(global.value.items[0].sid.empty());
    set(L"KVX_MEMBER_PAGE", L"2");
    const auto first = host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0);
    EXPECT_EQ(first.value.items.size(), 2U);
    EXPECT_TRUE(first.value.more);
    EXPECT_EQ(
        host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, first.value.next).value.items.size(),
        1U);
}

TEST_F(Memberships, AGroupThatVanishedIsNotThere) {
    setGroups();
    EXPECT_TRUE(host::localGroupMembers(controller, {L"CORP", L"Gone", {}}, 0).isMissing());
    EXPECT_TRUE(host::globalGroupMembers(controller, {L"CORP", L"Gone", {}}, 0).isMissing());
    set(L"KVX_MEMBERS_ERROR", L"5");
    EXPECT_EQ(host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0).status,
              host::Status::refused);
    set(L"KVX_MEMBERS_ERROR", L"1722");
    EXPECT_EQ(host::globalGroupMembers(controller, {L"CORP", L"Staff", {}}, 0).status, host::Status::failed);
}

}  // namespace
