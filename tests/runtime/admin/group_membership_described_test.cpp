#include "runtime/admin/group_membership.h"

#include "runtime/base/QVErrno.h"
#include "runtime/host/sid_text.h"
#include "runtime/util/QVSid.h"
#include "tests/runtime/util/described_domain.h"

namespace {

const char* const member = R"(
[system]
computer = WS01
[users]
alice
[groups]
Users (BUILTIN) = alice, CORP\alice
[domain]
joined = yes
name = CORP
controller = DC01
[domain users]
alice
[domain groups]
Administrators (BUILTIN) = alice
Sales = Domain Users
[global groups]
Domain Users = alice
)";

class GroupMembershipTest : public DescribedDomain {
protected:
    /// "DOMAIN\NAME, DOMAIN\NAME", or "error: TEXT".
    static std::wstring groupNames(const wchar_t* domain, const wchar_t* name) {
        try {
            std::wstring names;
            for (const host::Account& group : groupsOf({domain, name, {}}, isOfDomain({domain, name, {}}))) {
                names += (names.empty() ? L"" : L", ") + group.domain + L"\\" + group.name;
            }
            return names;
        } catch (QVErrno& error) {
            return L"error: " + error.mf_toString().units();
        }
    }
};

TEST_F(GroupMembershipTest, WhereTheDomainHasTheNameOfTheComputerTheSidTells) {
    startOn(
        "[system]\ncomputer = WS01\nsid = S-1-5-21-1-2-3\n"
        "[domain]\njoined = yes\nname = WS01\ncontroller = DC01\nsid = S-1-5-21-4-5-6\n");
    EXPECT_FALSE(isOfDomain({L"WS01", L"alice", host::sidOf(L"S-1-5-21-1-2-3-1001").value_or(host::Sid())}));
    EXPECT_TRUE(isOfDomain({L"WS01", L"alice", host::sidOf(L"S-1-5-21-4-5-6-1001").value_or(host::Sid())}));
    EXPECT_TRUE(isOfDomain({L"WS01", L"alice", {}}));
}

TEST_F(GroupMembershipTest, OnAControllerTheAccountsAreThoseOfTheDomain) {
    startOn(
        "[system]\ncomputer = DC01\n[domain]\njoined = yes\nname = CORP\nrole = controller\n"
        "[domain users]\nalice\n");
    EXPECT_TRUE(isOfDomain({L"CORP", L"alice", {}}));
    EXPECT_THROW(isOfDomain({L"OTHER", L"alice", {}}), QVErrno);
}

TEST_F(GroupMembershipTest, AnAccountOfThisComputerHasLocalGroupsOnly) {
    startOn(member);
    EXPECT_EQ(groupNames(L"ws01", L"alice"), L"BUILTIN\\Users");
}

TEST_F(GroupMembershipTest, AnAccountOfTheDomainHasLocalDomainLocalAndGlobalGroups) {
    startOn(member);
    EXPECT_EQ(groupNames(L"corp", L"alice"), L"BUILTIN\\Users, CORP\\Sales, CORP\\Domain Users");
}

TEST_F(GroupMembershipTest, OnAControllerTheBuiltInGroupsAreThisComputers) {
    startOn(member + std::string("[domain]\nrole = controller\n"));
    EXPECT_EQ(groupNames(L"CORP", L"alice"),
              L"BUILTIN\\Administrators, CORP\\Sales, CORP\\Sales, CORP\\Domain Users");
}

TEST_F(GroupMembershipTest, AnAccountOfAnotherDomainIsNotTakenForOneOfTheDomain) {
    startOn(member);
    EXPECT_EQ(
        groupNames(L"OTHER", L"alice"),
        L"error: Operation failed: the groups of 'OTHER\\alice' cannot be determined: it is no account of this "
        L"computer or its domain");
}

TEST_F(GroupMembershipTest, AComputerThatDoesNotTellItsNameLeavesTheAccountUndecided) {
    startOn(member + std::string("[system]\n! error 5 system\n"));
    EXPECT_NE(
        groupNames(L"WS01", L"alice").find(L"the name of this computer cannot be determined, system error 5"),
        std::wstring::npos);
    EXPECT_EQ(groupNames(L"CORP", L"alice"), L"BUILTIN\\Users, CORP\\Sales, CORP\\Domain Users");
}

TEST_F(GroupMembershipTest, AnUnknownMembershipLeavesTheAccountUndecided) {
    startOn(member + std::string("[domain]\n! error 1355 membership\n"));
    EXPECT_NE(groupNames(L"WS01", L"alice").find(L"the membership of a domain cannot be determined"),
              std::wstring::npos);
}

TEST_F(GroupMembershipTest, WithoutTheControllerInstanceNothingIsDetermined) {
    startOn(member);
    QVDomainController::stop();
    EXPECT_EQ(groupNames(L"WS01", L"alice"),
              L"error: Operation failed: the domain controller instance was not started");
}

}  // namespace
