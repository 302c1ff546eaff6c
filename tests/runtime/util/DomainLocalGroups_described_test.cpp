#include "runtime/host/sid_text.h"
#include "runtime/util/DomainLocalGroups.h"

#include <cstdio>

#include "runtime/host/host.h"
#include "tests/runtime/util/account_names.h"
#include "tests/runtime/util/described_domain.h"
#include "tests/runtime/util/random_directory.h"

namespace {

using Names = std::vector<std::wstring>;

const host::AccountSource controller{L"DC01"};

class DomainMemberships : public ListedDomain {
protected:
    /// The names of a user's groups; "failed" when they cannot be listed.
    static Names groupsOf(QVUser& user) { return domainLocalGroupsOf(user); }

    /// The same, as the controller answers it.
    static Names askedAlone(const QVUser& user) {
        const auto groups = host::localGroupsOf(controller, user.account());
        if (!groups.found()) return {L"failed"};
        Names names;
        for (const host::Account& group : groups.value)
            names.push_back(QVSid(group).fullName().units());
        return names;
    }
};

TEST_F(DomainMemberships, AreTheSameAsAskedForAloneInAnyDirectory) {
    int answered = 0, withGroups = 0;
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        RandomDirectory directory(seed, seed % 3 == 0);
        const std::string machine = directory.text();
        listUsersOf(machine);
        for (int i = 0; i < m_users.GetSize(); ++i) {
            const Names expected = askedAlone(*m_users[i]);
            const std::uint64_t before = description::remoteQuestions();
            ASSERT_EQ(groupsOf(*m_users[i]), expected) << "seed " << seed << "\n" << machine;
            if (i == 0) continue;
            ASSERT_EQ(description::remoteQuestions(), before) << "seed " << seed << "\n" << machine;
            ++answered;
            withGroups += !expected.empty();
        }
    }
    EXPECT_GT(answered, 1000);
    EXPECT_GT(withGroups, 300);
}

const std::string withWriters = company + "Writers = alice, Readers\n";
TEST_F(DomainMemberships, AnAccountAskedForAloneTakesOneQuestion) {
    startOn(withWriters);
    const auto users = host::users(controller, 0).value.items;
    QVUser bob(users[1]);
    DomainSession::accountSource();
    const std::uint64_t before = description::remoteQuestions();
    EXPECT_EQ(groupsOf(bob), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(description::remoteQuestions(), before + 1);
}

TEST_F(DomainMemberships, SoDoesTheOnlyAccountOfAList) {
    listUsersOf(
        "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n[domain users]\nalice\n[domain groups]\nG = alice\n");
    const std::uint64_t before = description::remoteQuestions();
    EXPECT_EQ(groupsOf(*m_users[0]), (Names{L"CORP\\G"}));
    EXPECT_EQ(description::remoteQuestions(), before + 1);
}

TEST_F(DomainMemberships, AnAccountThatWasNotListedIsAskedForAlone) {
    listUsersOf(withWriters);
    for (int i = 0; i < m_users.GetSize(); ++i)
        groupsOf(*m_users[i]);
    QVUser stranger(
        host::Account{L"CORP", L"nobody", host::sidOf(L"S-1-5-21-1-2-3-4").value_or(host::Sid())});
    const std::uint64_t before = description::remoteQuestions();
    EXPECT_EQ(groupsOf(stranger), (Names{L"failed"}));
    EXPECT_GT(description::remoteQuestions(), before);
}

TEST_F(DomainMemberships, AnotherListIsAskedForAnew) {
    listUsersOf(withWriters);
    for (int i = 0; i < m_users.GetSize(); ++i)
        groupsOf(*m_users[i]);
    listUsersOf(withWriters + "[domain users]\ndora\n[global groups]\nStaff = dora\n");
    EXPECT_EQ(groupsOf(*m_users[1]), Names{});
    EXPECT_EQ(groupsOf(*m_users[3]), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
}

TEST_F(DomainMemberships, WhereMembersAreRefusedEachAccountIsAskedForAlone) {
    listUsersOf(withWriters + "[domain groups]\n! refused bob\n");
    EXPECT_EQ(groupsOf(*m_users[0]), (Names{L"CORP\\Writers"}));
    EXPECT_EQ(groupsOf(*m_users[1]), (Names{L"failed"}));
    EXPECT_EQ(groupsOf(*m_users[2]), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    for (const char* cause :
         {"[global groups]\n! error 5\n", "[domain groups]\n! error 5\n",
          "[global groups]\n! error 2221 after 0\n", "[global groups]\n! refused someone\n"}) {
        listUsersOf(withWriters + cause);
        for (int i = 0; i < m_users.GetSize(); ++i) {
            const std::uint64_t before = description::remoteQuestions();
            const Names expected = askedAlone(*m_users[i]);
            EXPECT_EQ(groupsOf(*m_users[i]), expected);
            EXPECT_GT(description::remoteQuestions(), before + 1) << "not asked for alone";
        }
    }
}

TEST_F(DomainMemberships, AFirstAccountWithoutAnswerDoesNotSpoilTheOthers) {
    listUsersOf(withWriters);
    QVUser stranger(host::Account{L"CORP", L"nobody", {}});
    EXPECT_EQ(groupsOf(stranger), (Names{L"failed"}));
    groupsOf(*m_users[0]);
    const std::uint64_t before = description::remoteQuestions();
    EXPECT_EQ(groupsOf(*m_users[1]), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(description::remoteQuestions(), before);
}

/// A domain of `users` users and 40 groups that matter.
std::string largeDomain(int users) {
    std::string machine =
        "[system]\ncomputer = WS01\n[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n";
    machine += "[domain users]\ngenerate users = " + std::to_string(users) +
               " user%07d\n[global groups]\nDomain Users = *\n";
    for (int i = 1; i < 20; ++i)
        machine += "Team" + std::to_string(i) + " = user00000" + std::to_string(10 + i) + "\n";
    machine += "[domain groups]\nUsers (BUILTIN) = Domain Users\n";
    for (int i = 1; i < 20; ++i)
        machine += "Share" + std::to_string(i) + " = Team" + std::to_string(i) + ", user0000007\n";
    return machine;
}

TEST_F(DomainMemberships, CostQuestionsByPagesAndGroups) {
    constexpr std::uint64_t users = 25000, groups = 40, forEachGroup = 1, forAll = 8;
    listUsersOf(largeDomain(users));
    ASSERT_EQ(m_users.GetSize(), static_cast<int>(users));
    const std::uint64_t forTheList = description::remoteQuestions();
    std::uint64_t memberships = 0;
    for (int i = 0; i < m_users.GetSize(); ++i)
        memberships += groupsOf(*m_users[i]).size();
    const std::uint64_t all = description::remoteQuestions();
    EXPECT_EQ(memberships, users + 19 + 19);
    EXPECT_LE(all, users / 100 + forEachGroup * groups + forAll);
    std::printf(
        "%llu users, %llu groups: %llu remote questions, of which %llu for the list; one for each account: %llu\n",
        static_cast<unsigned long long>(users), static_cast<unsigned long long>(groups),
        static_cast<unsigned long long>(all), static_cast<unsigned long long>(forTheList),
        static_cast<unsigned long long>(forTheList + users));
}

}  // namespace
