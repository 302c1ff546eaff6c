#include "tests/runtime/host/described/described_accounts.h"
#include "tests/runtime/host/domain_named.h"

namespace {

using Domain = DescribedAccounts;

TEST_F(Domain, Membership) {
    describe(domain);
    const host::Membership membership = host::membership().value;
    EXPECT_TRUE(membership.joined);
    EXPECT_FALSE(membership.domainController);
    EXPECT_EQ(membership.domainName, L"CORP");
    EXPECT_EQ(membership.dnsDomainName, L"corp.example");
    describe("[domain]\nname = CORP\nworkgroup = HOME\njoined = no\n! error 2138 membership\n");
    EXPECT_EQ(host::membership().failure.code, 2138U);
    describe("[domain]\nname = CORP\nworkgroup = HOME\n");
    EXPECT_EQ(host::membership().value.domainName, L"HOME");
    EXPECT_EQ(host::membership().value.dnsDomainName, L"");
}

TEST_F(Domain, DomainController) {
    describe(domain);
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).value, L"DC01");
    EXPECT_EQ(host::domainController(domainNamed(L"corp.example"), true, true).value, L"DC02");
    EXPECT_EQ(host::domainController(domainNamed(L"OTHER"), false, false).failure.code, 1355U);
    describe("[domain]\njoined = yes\nname = CORP\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).failure.code, 1355U);
    describe("[domain]\nname = CORP\ncontroller = DC01\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).failure.code, 1355U);
}

TEST_F(Domain, WithoutAReachableController) {
    describe(std::string(domain) + "[domain]\nreachable = no\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).failure.code, 1355U);
    EXPECT_EQ(host::users({L"DC01"}, 0).failure.code, 1355U);
    EXPECT_EQ(host::localGroups({L"DC02"}, 0).status, host::Status::failed);
    EXPECT_EQ(host::accountOfName(L"CORP\\ada").failure.code, 1355U);
    EXPECT_EQ(host::accountOfName(L"FS01\\local").value.name, L"local");
    EXPECT_EQ(all(host::users), Names{L"FS01\\local"});
    describe(std::string(domain) + "[domain]\nreachable = no 5\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).status, host::Status::refused);
    describe(std::string(domain) + "[domain]\nreachable = no\n[domain]\nreachable = yes\n");
    EXPECT_TRUE(host::domainController(domainNamed(L"CORP"), false, false).found());
}

}  // namespace
