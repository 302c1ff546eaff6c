#include "runtime/host/description/scanner.h"
#include "runtime/host/sid_text.h"
#include "tests/runtime/host/described/described_accounts.h"

namespace {

using Users = DescribedAccounts;

TEST_F(Users, UsersOfThisComputer) {
    describe(
        "[system]\ncomputer = WS01\n[users]\nAdministrator\nalice = S-1-5-21-1-2-3-4\neva = no sid\nbob\n"
        "- ALICE\n");
    EXPECT_EQ(all(host::users), (Names{L"WS01\\Administrator", L"WS01\\eva", L"WS01\\bob"}));
    const auto page = host::users({}, 0);
    EXPECT_EQ(page.value.items[0].sid.subAuthorities[4], 500U);
    EXPECT_TRUE(page.value.items[1].sid.empty());
    EXPECT_EQ(page.value.items[2].sid.subAuthorityCount, 5);
    EXPECT_FALSE(page.value.more);
}

TEST_F(Users, MadeUpSidsAreTheSameAtEveryStart) {
    const std::string text = "[system]\ncomputer = WS01\n[users]\na\nb\n[groups]\nG =\n";
    describe(text);
    const host::AccountPage first = host::users({}, 0).value;
    const host::AccountPage firstGroups = host::localGroups({}, 0).value;
    describe(text);
    const host::AccountPage second = host::users({}, 0).value;
    EXPECT_TRUE(first.items[0].sid == second.items[0].sid);
    EXPECT_FALSE(first.items[0].sid == first.items[1].sid);
    EXPECT_TRUE(firstGroups.items[0].sid == host::localGroups({}, 0).value.items[0].sid);
    EXPECT_FALSE(first.items[0].sid == firstGroups.items[0].sid);
}

TEST_F(Users, GivenDomainSidsCount) {
    describe("[system]\ncomputer = WS01\nsid = S-1-5-21-1-2-3\n[users]\nGuest\n");
    EXPECT_EQ(host::sidText(host::users({}, 0).value.items[0].sid), L"S-1-5-21-1-2-3-501");
}

TEST_F(Users, GeneratedUsersAreMadeUpPageByPage) {
    describe(
        "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n[domain users]\nada\n"
        "generate users = 1000000 user%07d.x\ngenerate users = 2 z%d\n[global groups]\nDomain Users = *\n"
        "[domain groups]\nFew = user0000002.x, Z2\n");
    const auto page = host::users({L"DC01"}, 1000000);
    EXPECT_EQ(fullNames(page.value.items), (Names{L"CORP\\user1000000.x", L"CORP\\z1", L"CORP\\z2"}));
    EXPECT_EQ(groupsOf(L"CORP", L"USER0000002.X", L"DC01"), Names{L"CORP\\Few"});
    EXPECT_EQ(groupsOf(L"CORP", L"z2", L"DC01"), Names{L"CORP\\Few"});
    EXPECT_EQ(groupsOf(L"CORP", L"z1", L"DC01"), Names{});
    const host::Sid sid = page.value.items[0].sid;
    EXPECT_EQ(host::accountOfSid(sid).value.name, L"user1000000.x");
    EXPECT_EQ(host::accountOfName(L"CORP\\user0000001.x").value.name, L"user0000001.x");
    EXPECT_TRUE(host::accountOfName(L"CORP\\user1000001.x").isMissing());
    EXPECT_TRUE(host::accountOfName(L"CORP\\user1.x").isMissing());
    EXPECT_EQ(fullNames(host::globalGroupsOf({L"DC01"}, page.value.items[1]).value),
              Names{L"CORP\\Domain Users"});
}

TEST_F(Users, AListedAccountReplacesAnEarlierOneOfItsName) {
    describe(
        "[system]\ncomputer = A\n[users]\nbob\nalice\nBOB = S-1-5-21-1-1-1-1\n- nobody\n[groups]\nG = bob\n"
        "g = alice\n");
    EXPECT_EQ(all(host::users), (Names{L"A\\BOB", L"A\\alice"}));
    EXPECT_EQ(all(host::localGroups), Names{L"A\\g"});
    EXPECT_EQ(groupsOf(L"A", L"bob"), Names{});
}

TEST_F(Users, ClearEmptiesAList) {
    describe("[system]\ncomputer = A\n[users]\na\n! refused\n[users]\nclear\nb\n");
    EXPECT_EQ(all(host::users), Names{L"A\\b"});
}

}  // namespace
