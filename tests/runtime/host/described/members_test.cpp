#include "runtime/host/description/scanner.h"
#include "runtime/host/sid_text.h"
#include "tests/runtime/host/described/described_accounts.h"

namespace {

using Members = DescribedAccounts;

TEST_F(Members, MembersOfLocalGroupsAreKnownBySidWhereTheyHaveOne) {
    describe(std::string(domain) +
             "[domain users]\neva = no sid\n[domain groups]\n"
             "Mixed = Staff, eva, S-1-5-21-6-6-6-7, OTHER\\bob, Everyone, Administrators\n");
    const auto page = host::localGroupMembers({L"DC01"}, {L"corp", L"MIXED", {}}, 0);
    ASSERT_TRUE(page.found());
    ASSERT_EQ(page.value.items.size(), 6U);
    EXPECT_FALSE(page.value.more);
    const auto staff = host::globalGroups({L"DC01"}, 0).value.items[2];
    EXPECT_TRUE(page.value.items[0].sid == staff.sid);
    EXPECT_EQ(page.value.items[0].name, L"");
    EXPECT_EQ(fullNames({page.value.items[1]}), Names{L"CORP\\eva"});
    EXPECT_EQ(host::sidText(page.value.items[2].sid), L"S-1-5-21-6-6-6-7");
    EXPECT_EQ(fullNames({page.value.items[3]}), Names{L"other\\bob"});
    EXPECT_EQ(host::sidText(page.value.items[4].sid), L"S-1-1-0");
    EXPECT_EQ(host::sidText(page.value.items[5].sid), L"S-1-5-32-544");
    EXPECT_TRUE(host::localGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0).isMissing());
    EXPECT_EQ(host::localGroupMembers({}, {L"BUILTIN", L"Administrators", {}}, 0).value.items.size(), 2U);
}

TEST_F(Members, MembersOfGlobalGroupsAreKnownByName) {
    describe(domain);
    EXPECT_EQ(all(host::globalGroups, L"DC01"),
              (Names{L"CORP\\Domain Users", L"CORP\\Engineers", L"CORP\\Staff"}));
    EXPECT_EQ(all(host::globalGroups), Names{});
    const auto staff = host::globalGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0);
    EXPECT_EQ(fullNames(staff.value.items), (Names{L"CORP\\Engineers", L"CORP\\ben"}));
    EXPECT_TRUE(staff.value.items[0].sid.empty());
    EXPECT_TRUE(host::globalGroupMembers({L"DC01"}, {L"CORP", L"Readers", {}}, 0).isMissing());
    EXPECT_TRUE(host::globalGroupMembers({}, {L"CORP", L"Staff", {}}, 0).isMissing());
}

TEST_F(Members, MembersComeInPagesOfTheirOwn) {
    describe(std::string(domain) + "[domain]\nmember page size = 2\n[global groups]\nMany = ada, *, ben\n");
    Names found;
    int pages = 0;
    const auto end = host::readPages<host::Account>(
        [&](std::uint64_t cursor) {
            ++pages;
            return host::globalGroupMembers({L"DC01"}, {L"CORP", L"Many", {}}, cursor);
        },
        [&](const host::Account& member) { found.push_back(member.name); });
    EXPECT_TRUE(end.found());
    EXPECT_EQ(found, (Names{L"ada", L"ada", L"ben", L"carla", L"ben"}));
    EXPECT_EQ(pages, 3);
    const auto beyond = host::globalGroupMembers({L"DC01"}, {L"CORP", L"Many", {}}, 0xFFFFFFFFFFFFFFFFU);
    EXPECT_TRUE(beyond.found());
    EXPECT_TRUE(beyond.value.items.empty());
    EXPECT_FALSE(beyond.value.more);
}

TEST_F(Members, WhereAnAccountIsRefusedSoAreTheMembers) {
    describe(std::string(domain) + "[domain groups]\n! refused ada\n[domain]\n");
    EXPECT_EQ(host::localGroupMembers({L"DC01"}, {L"CORP", L"Writers", {}}, 0).status, host::Status::refused);
    EXPECT_TRUE(host::globalGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0).found());
    EXPECT_TRUE(host::localGroupMembers({}, {L"FS01", L"Others", {}}, 0).found());
}

}  // namespace
