#include "runtime/admin/QuotaGroups.h"

#include <cstdio>

#include "runtime/admin/QVQuotaConfiguration.h"
#include "runtime/admin/group_membership.h"
#include "runtime/base/QVErrno.h"
#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"
#include "tests/runtime/util/described_domain.h"
#include "tests/runtime/util/random_directory.h"

namespace {

using Entries = std::set<int>;

class QuotaGroupsTest : public ListedDomain {
protected:
    ~QuotaGroupsTest() override { QVQuotaConfiguration::mf_deleteInstance(); }

    /// Entries for the groups of these names, each with its SID, or with its name alone for an odd one.
    void giveEntries(const std::vector<std::string>& names) {
        m_entries = {};
        m_owned.clear();
        int number = 0;
        for (const std::string& name : names) {
            auto account = host::accountOfName(std::wstring(name.begin(), name.end()));
            ASSERT_TRUE(account.found()) << name;
            if (number++ % 2 == 1) account.value.sid = {};
            m_owned.push_back(std::make_unique<QVSidQuota>(account.value, QVQuota(), true));
            m_entries.Add(m_owned.back().get());
        }
    }

    /// The same without a table: from all groups of the account.
    static Entries expected(const QuotaEntries& entries, const host::Account& account) {
        Entries result;
        for (const host::Account& group : groupsOf(account, true)) {
            if (const int index = entries.find(group); index != QuotaEntries::none) result.insert(index);
        }
        return result;
    }

    QVArray<QVSidQuota*> m_entries;
    std::vector<std::unique_ptr<QVSidQuota>> m_owned;
};

TEST_F(QuotaGroupsTest, AreTheSameAsAskedForAloneInAnyDirectory) {
    int answered = 0, matched = 0;
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        const bool isController = seed % 3 == 0;
        RandomDirectory directory(seed, isController);
        const std::string machine = directory.text();
        startAnew(machine);
        std::vector<std::string> names{"CORP\\Domain Users", "BUILTIN\\Users"};
        for (const std::string& name : directory.groupNames()) {
            if (directory.oneIn(2)) names.push_back(name);
        }
        giveEntries(names);
        ASSERT_EQ(isController && directory.oneIn(2) ? QVUser::mf_getComputerUserList(m_users)
                                                     : QVUser::mf_getDomainUserList(m_users),
                  1);
        const QuotaEntries entries(m_entries);
        QuotaGroups groups(entries);
        for (int i = 0; i < m_users.GetSize(); ++i) {
            const host::Account account = m_users[i]->account();
            const Entries alone = expected(entries, account);
            const std::uint64_t before = description::remoteQuestions();
            ASSERT_EQ(groups.entriesOf(account), alone) << "seed " << seed << "\n" << machine;
            if (i == 0) continue;
            ASSERT_EQ(description::remoteQuestions(), before) << "seed " << seed << "\n" << machine;
            ++answered;
            matched += alone.size() > 1;
        }
    }
    EXPECT_GT(answered, 1000);
    EXPECT_GT(matched, 300);
}

/// With a group of this computer, to which accounts of both belong.
const std::string withTesters = company + "[users]\nalice\n[groups]\nTesters = CORP\\Staff, alice\n";
TEST_F(QuotaGroupsTest, AnAccountAskedForAloneTakesNoMoreQuestionsThanItsGroups) {
    startAnew(withTesters);
    giveEntries({"WS01\\Testers", "CORP\\Readers"});
    const QuotaEntries entries(m_entries);
    QuotaGroups groups(entries);
    DomainSession::accountSource();
    const std::uint64_t before = description::remoteQuestions();
    EXPECT_EQ(groups.entriesOf({L"CORP", L"bob", {}}), (Entries{0, 1}));
    EXPECT_EQ(description::remoteQuestions(), before + 3);
}

TEST_F(QuotaGroupsTest, AnAccountOfThisComputerDoesNotCountAsItsNamesakeOfTheDomain) {
    startAnew(withTesters);
    giveEntries({"WS01\\Testers"});
    ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    const QuotaEntries entries(m_entries);
    QuotaGroups groups(entries);
    EXPECT_EQ(groups.entriesOf({L"CORP", L"alice", {}}), Entries{});
    EXPECT_EQ(groups.entriesOf({L"CORP", L"bob", {}}), Entries{0});
    EXPECT_EQ(groups.entriesOf({L"WS01", L"alice", {}}), Entries{0});
}

TEST_F(QuotaGroupsTest, WhereMembersCannotBeReadEachAccountIsAskedForAlone) {
    for (const char* cause : {"[groups]\n! refused carol\n", "[domain groups]\n! refused carol\n",
                              "[global groups]\n! error 1332 carol\n"}) {
        startAnew(withTesters + cause);
        giveEntries({"WS01\\Testers", "CORP\\Readers"});
        ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
        const QuotaEntries entries(m_entries);
        QuotaGroups groups(entries);
        EXPECT_EQ(groups.entriesOf(m_users[0]->account()), Entries{});
        EXPECT_EQ(groups.entriesOf(m_users[1]->account()), (Entries{0, 1}));
        EXPECT_THROW(groups.entriesOf(m_users[2]->account()), QVErrno);
    }
}

TEST_F(QuotaGroupsTest, AGroupThatAnEntryMayMeanLeavesItsMembersUndecided) {
    startAnew(withTesters);
    m_owned.push_back(std::make_unique<QVSidQuota>(host::Account{L"", L"Readers", {}}, QVQuota(), false));
    m_entries.Add(m_owned.back().get());
    ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    const QuotaEntries entries(m_entries);
    QuotaGroups groups(entries);
    EXPECT_EQ(groups.entriesOf(m_users[0]->account()), Entries{});
    for (int i : {1, 2, 1}) {
        const std::uint64_t before = description::remoteQuestions();
        EXPECT_TRUE(holds(errorOf([&] { groups.entriesOf(m_users[i]->account()); }),
                          L"whether the quota file means 'CORP\\Readers'"));
        EXPECT_EQ(description::remoteQuestions(), before);
    }
}

std::string quotaMachine(const std::string& quotas, int users) {
    std::string machine =
        "[machine]\nbase = sample\n[users]\nclear\nlocal\n[groups]\nclear\nUsers (BUILTIN) = CORP\\Domain Users, local\n"
        "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n[domain users]\ngenerate users = " +
        std::to_string(users) + " user%05d\n[global groups]\nDomain Users = *\n";
    for (int i = 1; i <= 20; ++i)
        machine += "Team" + std::to_string(i) + " = user000" + std::to_string(20 + i) + "\n";
    machine += "[domain groups]\nUsers (BUILTIN) = Domain Users\n";
    for (int i = 1; i <= 20; ++i)
        machine += "Share" + std::to_string(i) + " = Team" + std::to_string(i) + "\n";
    return machine + "[contents C:\\Program Files\\Norvel\\HsmClient\\config\\quota.cfg]\n" + quotas;
}

TEST_F(QuotaGroupsTest, AllQuotasCostQuestionsByPagesAndGroups) {
    constexpr std::uint64_t users = 25000, groups = 6, forEachGroup = 3, forAll = 20;
    startAnew(quotaMachine(
        "default = 1 MB\nuser CORP\\gone = 9 MB\nuser CORP\\user00009 = 3 MB\ngroup BUILTIN\\Users = 2 MB\n"
        "group CORP\\Share1 = 5 MB\ngroup CORP\\Share2 = 6 MB\ngroup CORP\\Team2 = 7 MB\n"
        "group CORP\\Team3 = 8 MB\ngroup CORP\\Nobody = 9 MB\n",
        users));
    QVQuotaConfiguration::mf_createInstance();
    ASSERT_EQ(QVUser::mf_getDomainUserList(m_users), 1);
    const std::uint64_t before = description::remoteQuestions();
    std::map<std::wstring, int> kinds;
    for (int i = 0; i < m_users.GetSize(); ++i) {
        QVQuota* quota = nullptr;
        CString explanation;
        QVQuotaConfiguration::mf_getQuota(m_users[i]->mf_getSid(), quota, explanation);
        ++kinds[explanation.units()];
    }
    const std::uint64_t all = description::remoteQuestions();
    EXPECT_EQ(kinds, (std::map<std::wstring, int>{{L"", 1},
                                                  {L"group BUILTIN\\Users", 25000 - 4},
                                                  {L"group CORP\\Share1", 1},
                                                  {L"group CORP\\Team2", 1},
                                                  {L"group CORP\\Team3", 1}}));
    EXPECT_LE(all, users / 100 + forEachGroup * groups + forAll);
    std::printf(
        "%llu users, %llu groups with entries: %llu remote questions, of which %llu for file and list\n",
        static_cast<unsigned long long>(users), static_cast<unsigned long long>(groups),
        static_cast<unsigned long long>(all), static_cast<unsigned long long>(before));
}

}  // namespace
