#include "runtime/host/description/scanner.h"
#include "runtime/host/sid_text.h"
#include "tests/runtime/host/described/described_accounts.h"

namespace {

using Groups = DescribedAccounts;

TEST_F(Groups, MembersAreTheSameInCapitalAndSmallLettersOfEveryScript) {
    describe(
        "[system]\ncomputer = A\n[users]\nNGUY\xE1\xBB\x84N\n\xD3\x81\xD1\x83\xD0\xBA\n"
        "[groups]\nReaders = nguy\xE1\xBB\x85n, \xD3\x82\xD1\x83\xD0\xBA\n");
    EXPECT_EQ(host::localGroupsOf({}, {L"A", L"nguy\u1EC5n", {}}).value.size(), 1U);
    EXPECT_EQ(host::localGroupsOf({}, {L"a", L"\u04C2\u0443\u043A", {}}).value.size(), 1U);
}

TEST_F(Groups, WellKnownGroupsHaveTheirSids) {
    describe(
        "[system]\ncomputer = WS01\n[groups]\nAdministrators =\nUsers (BUILTIN) =\n"
        "Mine S-1-5-21-7-8-9-10 =\n");
    const auto page = host::localGroups({}, 0);
    EXPECT_EQ(fullNames(page.value.items),
              (Names{L"BUILTIN\\Administrators", L"BUILTIN\\Users", L"WS01\\Mine"}));
    EXPECT_EQ(host::sidText(page.value.items[0].sid), L"S-1-5-32-544");
    EXPECT_EQ(host::sidText(page.value.items[1].sid), L"S-1-5-32-545");
    EXPECT_EQ(host::sidText(page.value.items[2].sid), L"S-1-5-21-7-8-9-10");
}

TEST_F(Groups, GroupsOfAUserIncludeThoseReachedThroughOthers) {
    describe(domain);
    EXPECT_EQ(groupsOf(L"CORP", L"ada", L"DC01"), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(groupsOf(L"corp", L"BEN", L"dc01"), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(groupsOf(L"CORP", L"carla", L"DC01"), Names{});
    EXPECT_EQ(groupsOf(L"CORP", L"ada"), (Names{L"BUILTIN\\Administrators", L"FS01\\Others"}));
    EXPECT_EQ(groupsOf(L"CORP", L"ben"), Names{L"FS01\\Others"});
    EXPECT_EQ(groupsOf(L"FS01", L"local"), (Names{L"BUILTIN\\Administrators", L"FS01\\Others"}));
}

TEST_F(Groups, GlobalGroupsAreDirectOnes) {
    describe(domain);
    const auto answer = host::globalGroupsOf({L"DC01"}, {L"CORP", L"ada", {}});
    EXPECT_EQ(fullNames(answer.value), (Names{L"CORP\\Domain Users", L"CORP\\Engineers"}));
    EXPECT_TRUE(host::globalGroupsOf({}, {L"FS01", L"local", {}}).value.empty());
}

TEST_F(Groups, GroupsThatHoldEachOtherEnd) {
    describe("[system]\ncomputer = A\n[users]\na\n[groups]\nOne = Two, a\nTwo = One\n");
    EXPECT_EQ(groupsOf(L"A", L"a"), (Names{L"A\\One", L"A\\Two"}));
}

TEST_F(Groups, MembersBySid) {
    describe(std::string(domain) + "Orphans = S-1-5-21-1-2-3-9999, S-1-5-21-9-9-9-9\n");
    EXPECT_EQ(groupsOf(L"CORP", L"carla"), Names{L"FS01\\Orphans"});
    host::Account bySid;
    bySid.sid = *description::sidOf(L"S-1-5-21-1-2-3-9999");
    EXPECT_EQ(fullNames(host::localGroupsOf({}, bySid).value), Names{L"FS01\\Orphans"});
}

TEST_F(Groups, GroupsOfSomebodyUnknown) {
    describe(domain);
    for (const host::Account& account :
         {host::Account{L"CORP", L"nobody", {}}, host::Account{L"FS01", L"ada", {}},
          host::Account{L"OTHER", L"ada", {}}, host::Account{}}) {
        const auto answer = host::localGroupsOf({}, account);
        EXPECT_TRUE(answer.isMissing()) << host::sidText(account.sid);
    }
}

TEST_F(Groups, GroupsOfAnAccountCanBeRefused) {
    describe(std::string(domain) + "! refused local\n[domain groups]\n! error 1722 *\n");
    EXPECT_EQ(host::localGroupsOf({}, {L"FS01", L"local", {}}).status, host::Status::refused);
    EXPECT_TRUE(host::localGroupsOf({}, {L"CORP", L"ada", {}}).found());
    EXPECT_EQ(host::localGroupsOf({L"DC01"}, {L"CORP", L"ada", {}}).failure.code, 1722U);
}

}  // namespace
