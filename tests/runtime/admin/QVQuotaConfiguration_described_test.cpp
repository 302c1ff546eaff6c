#include "runtime/admin/QVQuotaConfiguration.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "runtime/base/QVErrno.h"
#include "runtime/host/sid_text.h"
#include "tests/runtime/util/described_domain.h"

namespace {

const char* const computer = R"(
[system]
computer = WS01
[registry]
[HKEY_LOCAL_MACHINE\SOFTWARE\Norvel\Orlix\CurrentVersion\HsmClient]
"Path"="C:\\hsm"
[users]
alice = S-1-5-21-1-2-3-1001
bob = S-1-5-21-1-2-3-1002
[groups]
Administrators (BUILTIN) = bob
Users (BUILTIN) = alice, bob
Staff S-1-5-21-1-2-3-2001 = Team
Team S-1-5-21-1-2-3-2002 = bob
)";

const char* const domain = R"(
[domain]
joined = yes
name = CORP
controller = DC01
[domain users]
alice = S-1-5-21-4-5-6-1001
dora = S-1-5-21-4-5-6-1002
[domain groups]
Users (BUILTIN) = dora
Sales S-1-5-21-4-5-6-3001 = Domain Users
[global groups]
Domain Users = alice, dora
Managers S-1-5-21-4-5-6-4001 = dora
)";

const wchar_t* const alice = L"S-1-5-21-1-2-3-1001";
const wchar_t* const bob = L"S-1-5-21-1-2-3-1002";
const wchar_t* const domainAlice = L"S-1-5-21-4-5-6-1001";
const wchar_t* const dora = L"S-1-5-21-4-5-6-1002";

class QVQuotaConfigurationTest : public DescribedDomain {
protected:
    ~QVQuotaConfigurationTest() override { QVQuotaConfiguration::mf_deleteInstance(); }

    /// Examines this machine with this quota file and reads the quotas.
    void create(const std::string& machine, const std::string& file) {
        startOn(machine + "\n[contents C:\\hsm\\config\\quota.cfg]\n" + file);
        QVQuotaConfiguration::mf_createInstance();
    }

    /// "TYPE|QUOTA|EXPLANATION" of an account, or "error: TEXT".
    static std::wstring quotaOf(const wchar_t* sid) {
        const QVSid account({L"", L"", host::sidOf(sid).value_or(host::Sid())});
        QVQuota* quota = nullptr;
        CString explanation;
        try {
            const auto type = QVQuotaConfiguration::mf_getQuota(account.mf_getSid(), quota, explanation);
            if (quota == nullptr) return L"no pointer";
            return formatText(L"%d|%s|%s", static_cast<int>(type), quota->mf_toString(1), explanation);
        } catch (QVErrno& error) {
            return formatText(L"error: %s", error.mf_toString());
        }
    }

    static void expectError(const wchar_t* sid, const wchar_t* text) {
        const std::wstring result = quotaOf(sid);
        EXPECT_TRUE(result.starts_with(L"error: "));
        EXPECT_NE(result.find(text), std::wstring::npos);
    }
};

TEST_F(QVQuotaConfigurationTest, AUsersOwnEntryComesFirst) {
    create(computer, "default = 1\ngroup BUILTIN\\Users = 9\nuser alice = 2\n");
    EXPECT_EQ(quotaOf(alice), L"1|2 bytes|");
}

TEST_F(QVQuotaConfigurationTest, TheLargestGroupEntryComesNext) {
    create(computer, "default = 9\ngroup BUILTIN\\Users = 2\ngroup BUILTIN\\Administrators = 3\n");
    EXPECT_EQ(quotaOf(alice), L"2|2 bytes|group BUILTIN\\Users");
    EXPECT_EQ(quotaOf(bob), L"2|3 bytes|group BUILTIN\\Administrators");
}

TEST_F(QVQuotaConfigurationTest, UnlimitedIsTheLargestGroupEntry) {
    create(computer,
           "group BUILTIN\\Users = 18446744073709551615\ngroup BUILTIN\\Administrators = unlimited\n");
    EXPECT_EQ(quotaOf(bob), L"2|unlimited|group BUILTIN\\Administrators");
}

TEST_F(QVQuotaConfigurationTest, AllGroupsThatDecidedAreNamedInTheFilesOrder) {
    create(computer, "group Staff = 1 KB\ngroup BUILTIN\\Administrators = 1\ngroup BUILTIN\\Users = 1024\n");
    EXPECT_EQ(quotaOf(bob), L"2|1 KB (1024 bytes)|groups WS01\\Staff, BUILTIN\\Users");
}

TEST_F(QVQuotaConfigurationTest, GroupsOfGroupsCount) {
    create(computer, "group Staff = 1\n");
    EXPECT_EQ(quotaOf(bob), L"2|1 byte|group WS01\\Staff");
}

TEST_F(QVQuotaConfigurationTest, TheDefaultComesLast) {
    create(computer, "default = 5\nuser bob = 1\ngroup Staff = 1\n");
    EXPECT_EQ(quotaOf(alice), L"3|5 bytes|");
}

TEST_F(QVQuotaConfigurationTest, WithoutAnyRuleThereIsNoQuota) {
    create(computer, "user bob = 1\ngroup Staff = 2\n");
    EXPECT_EQ(quotaOf(alice), L"0|no quota|");
}

TEST_F(QVQuotaConfigurationTest, DomainUsersHaveLocalDomainLocalAndGlobalGroups) {
    create(std::string(computer) + domain + "[groups]\nTeam S-1-5-21-1-2-3-2002 = CORP\\Domain Users\n",
           "group Team = 1\n");
    EXPECT_EQ(quotaOf(dora), L"2|1 byte|group WS01\\Team");
    create(std::string(computer) + domain, "group CORP\\Sales = 1\ngroup CORP\\Managers = 2\n");
    EXPECT_EQ(quotaOf(dora), L"2|2 bytes|group CORP\\Managers");
    EXPECT_EQ(quotaOf(domainAlice), L"2|1 byte|group CORP\\Sales");
}

TEST_F(QVQuotaConfigurationTest, ALocalUserIsNotTheDomainUserOfTheSameName) {
    create(std::string(computer) + domain, "default = 7\ngroup CORP\\Sales = 1\nuser WS01\\bob = 2\n");
    EXPECT_EQ(quotaOf(alice), L"3|7 bytes|");
}

TEST_F(QVQuotaConfigurationTest, TheControllersBuiltInGroupsAreNotThisComputers) {
    create(std::string(computer) + domain, "default = 7\ngroup BUILTIN\\Users = 1\n");
    EXPECT_EQ(quotaOf(dora), L"3|7 bytes|");
    EXPECT_EQ(quotaOf(alice), L"2|1 byte|group BUILTIN\\Users");
}

TEST_F(QVQuotaConfigurationTest, AControllerOutOfReachLeavesDomainUsersUndecided) {
    const std::string unreachable = std::string(computer) + domain + "[domain]\nreachable = no 1722\n";
    create(unreachable, "default = 1\ngroup Staff = 2\n");
    expectError(dora, L"system error 1722");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
    create(unreachable, "default = 1\nuser S-1-5-21-4-5-6-1002 = 2\n");
    EXPECT_EQ(quotaOf(dora), L"1|2 bytes|");
    EXPECT_EQ(quotaOf(domainAlice), L"3|1 byte|");
}

TEST_F(QVQuotaConfigurationTest, RefusedMembershipsLeaveAUserUndecided) {
    create(std::string(computer) + "[groups]\n! error 5 bob\n", "default = 1\ngroup Staff = 2\n");
    expectError(bob, L"the local groups of 'WS01\\bob' cannot be determined");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
    create(std::string(computer) + domain + "[global groups]\n! error 5 dora\n", "group CORP\\Sales = 2\n");
    expectError(dora, L"the global groups of 'CORP\\dora' cannot be determined");
    create(std::string(computer) + domain + "[domain groups]\n! error 5 dora\n",
           "group CORP\\Managers = 2\n");
    expectError(dora, L"the domain-local groups of 'CORP\\dora' cannot be determined");
}

TEST_F(QVQuotaConfigurationTest, MembershipsAreNotAskedForWithoutGroupEntries) {
    create(std::string(computer) + "[groups]\n! error 5 bob\n", "default = 1\n");
    EXPECT_EQ(quotaOf(bob), L"3|1 byte|");
}

TEST_F(QVQuotaConfigurationTest, AnAccountThatTheSystemDoesNotKnowIsUndecidedByGroups) {
    create(computer, "default = 1\ngroup Staff = 2\n");
    expectError(L"S-1-5-21-7-7-7-7", L"S-1-5-21-7-7-7-7");
    create(computer, "default = 1\nuser alice = 2\nuser CORP\\gone = 3\n");
    EXPECT_EQ(quotaOf(L"S-1-5-21-7-7-7-7"), L"3|1 byte|");
}

TEST_F(QVQuotaConfigurationTest, AnEntryOfUnknownNameIsNobodys) {
    create(computer, "default = 1\nuser WS01\\gone = 2\ngroup WS01\\vanished = 3\n");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
}

TEST_F(QVQuotaConfigurationTest, WhatCannotBeLookedUpMatchesByFullName) {
    const std::string unreachable = std::string(computer) + domain + "[domain]\nreachable = no\n";
    create(unreachable, "default = 1\nuser corp\\DORA = 2\n");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
    EXPECT_EQ(quotaOf(dora), L"1|2 bytes|");
    create(unreachable + "sid = S-1-5-21-4-5-6\n", "default = 1\nuser corp\\DORA = 2\n");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
    expectError(dora, L"the name of the account S-1-5-21-4-5-6-1002 cannot be determined");
}

TEST_F(QVQuotaConfigurationTest, WhatCannotBeLookedUpMayBeAnyoneOfThatName) {
    const std::string unreachable =
        std::string(computer) + domain + "[domain]\nreachable = no\ndns = corp.example\n";
    create(unreachable, "default = 1\nuser corp.example\\bob = 2\n");
    EXPECT_EQ(quotaOf(alice), L"3|1 byte|");
    expectError(bob, L"whether the quota file means 'WS01\\bob' cannot be determined");
}

TEST_F(QVQuotaConfigurationTest, WithoutInstanceThereIsNoQuota) {
    create(computer, "default = 1\n");
    QVQuotaConfiguration::mf_deleteInstance();
    QVQuotaConfiguration::mf_deleteInstance();
    EXPECT_EQ(quotaOf(alice), L"error: Operation failed: the quotas were not read");
}

TEST_F(QVQuotaConfigurationTest, WithoutAccountThereIsNoQuota) {
    create(computer, "default = 1\n");
    QVQuota* quota = nullptr;
    CString explanation;
    EXPECT_THROW(QVQuotaConfiguration::mf_getQuota(nullptr, quota, explanation), QVErrno);
}

TEST_F(QVQuotaConfigurationTest, ASidIsReadNoFurtherThanItGoes) {
    create(computer, "user S-1-5-32-545 = 1\ngroup Staff = 1\n");
    const auto exact = std::make_unique<std::uint32_t[]>(4);  // what lies behind is not this test's
    const unsigned char bytes[] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x21, 2, 0, 0};
    std::memcpy(exact.get(), bytes, sizeof bytes);
    QVQuota* quota = nullptr;
    CString explanation;
    const SID* sid = reinterpret_cast<const SID*>(exact.get());
    EXPECT_EQ(QVQuotaConfiguration::mf_getQuota(sid, quota, explanation), QVQuotaConfiguration::userEntry);
    reinterpret_cast<unsigned char*>(exact.get())[1] = 16;
    EXPECT_THROW(QVQuotaConfiguration::mf_getQuota(sid, quota, explanation), QVErrno);
}

TEST_F(QVQuotaConfigurationTest, AFaultyFileLeavesNoInstance) {
    create(computer, "default = 1\n");
    describe(std::string(computer) + "[contents C:\\hsm\\config\\quota.cfg]\nnonsense\n");
    EXPECT_THROW(QVQuotaConfiguration::mf_createInstance(), QVErrno);
    expectError(alice, L"the quotas were not read");
}

TEST_F(QVQuotaConfigurationTest, AMembershipTestThatFailsLeavesUsersUndecided) {
    create(std::string(computer) + "[domain]\n! error 1355 membership\n", "default = 1\ngroup Staff = 1\n");
    expectError(alice, L"system error 1355");
}

TEST_F(QVQuotaConfigurationTest, PlannedFailures) {
    create(std::string(computer) +
               "[failures]\n"
               "QVQuotaConfiguration::mf_getQuota \"S-1-5-21-1-2-3-1001\" : answer 0\n"
               "QVQuotaConfiguration::mf_getQuota \"S-1-5-21-1-2-3-1002\" : error Unspecific \"why\"\n"
               "QVQuotaConfiguration::mf_deleteInstance call 1 : error Unspecific\n",
           "user alice = 1\nuser bob = 2\n");
    EXPECT_EQ(quotaOf(alice), L"0|no quota|");
    EXPECT_EQ(quotaOf(bob), L"error: Operation failed: why");
    EXPECT_THROW(QVQuotaConfiguration::mf_deleteInstance(), QVErrno);
    expectError(dora, L"the quotas were not read");
}

TEST_F(QVQuotaConfigurationTest, TypesHaveNames) {
    using Configuration = QVQuotaConfiguration;
    EXPECT_EQ(Configuration::mf_getQuotaTypeString(Configuration::noRule, 1), L"no quota rule");
    EXPECT_EQ(Configuration::mf_getQuotaTypeString(Configuration::userEntry, 1), L"user entry");
    EXPECT_EQ(Configuration::mf_getQuotaTypeString(Configuration::groupEntry, 1), L"group entry");
    EXPECT_EQ(Configuration::mf_getQuotaTypeString(Configuration::defaultEntry, 1), L"default entry");
    EXPECT_EQ(Configuration::groupEntry, 2);
}

}  // namespace
