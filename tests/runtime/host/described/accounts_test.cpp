#include "runtime/host/description/scanner.h"
#include "runtime/host/host.h"
#include "runtime/host/paging.h"
#include "tests/runtime/host/description/machine_fixture.h"
#include "tests/runtime/host/domain_named.h"

namespace {

class Accounts : public DescribedMachine {
protected:
    using List = host::Answer<host::AccountPage> (*)(const host::AccountSource&, std::uint64_t);

    static std::vector<std::wstring> names(const std::vector<host::Account>& accounts) {
        std::vector<std::wstring> result;
        for (const host::Account& account : accounts)
            result.push_back(account.domain + L"\\" + account.name);
        return result;
    }

    /// The names of a whole list; the way in which it ended goes to `end`.
    static std::vector<std::wstring> all(List list, const std::wstring& server,
                                         host::Answer<host::Done>& end) {
        std::vector<host::Account> accounts;
        end = host::readPages<host::Account>([&](std::uint64_t cursor) { return list({server}, cursor); },
                                             [&](host::Account&& account) { accounts.push_back(account); });
        return names(accounts);
    }
    static std::vector<std::wstring> all(List list, const std::wstring& server = {}) {
        host::Answer<host::Done> end;
        const auto result = all(list, server, end);
        EXPECT_TRUE(end.found());
        return result;
    }

    static std::vector<std::wstring> groupsOf(const std::wstring& domain, const std::wstring& name,
                                              const std::wstring& server = {}) {
        const auto answer = host::localGroupsOf({server}, {domain, name, {}});
        EXPECT_TRUE(answer.found());
        return names(answer.value);
    }

    static constexpr const char* domain =
        "[system]\ncomputer = FS01\n"
        "[domain]\njoined = yes\nname = CORP\ndns = corp.example\ncontroller = DC01\nprimary = DC02\n"
        "[domain users]\nada\nben\ncarla = S-1-5-21-1-2-3-9999\n"
        "[global groups]\nDomain Users = *\nEngineers = ada\nStaff = Engineers, ben\n"
        "[domain groups]\nReaders = Staff\nWriters = ada, CORP\\ben\nEmpty =\n"
        "[users]\nlocal\n[groups]\nAdministrators = local, CORP\\Engineers\n"
        "Others = Administrators, CORP\\Readers\n";
};

using Names = std::vector<std::wstring>;

}  // namespace

TEST_F(Accounts, UsersOfThisComputer) {
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

TEST_F(Accounts, MadeUpSidsAreTheSameAtEveryStart) {
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

TEST_F(Accounts, WellKnownGroupsHaveTheirSids) {
    describe(
        "[system]\ncomputer = WS01\n[groups]\nAdministrators =\nUsers (BUILTIN) =\n"
        "Mine S-1-5-21-7-8-9-10 =\n");
    const auto page = host::localGroups({}, 0);
    EXPECT_EQ(names(page.value.items), (Names{L"BUILTIN\\Administrators", L"BUILTIN\\Users", L"WS01\\Mine"}));
    EXPECT_EQ(description::sidText(page.value.items[0].sid), L"S-1-5-32-544");
    EXPECT_EQ(description::sidText(page.value.items[1].sid), L"S-1-5-32-545");
    EXPECT_EQ(description::sidText(page.value.items[2].sid), L"S-1-5-21-7-8-9-10");
}

TEST_F(Accounts, GivenDomainSidsCount) {
    describe("[system]\ncomputer = WS01\nsid = S-1-5-21-1-2-3\n[users]\nGuest\n");
    EXPECT_EQ(description::sidText(host::users({}, 0).value.items[0].sid), L"S-1-5-21-1-2-3-501");
}

TEST_F(Accounts, ComeInPages) {
    describe("[domain]\npage size = 2\n[users]\na\nb\nc\nd\ne\n");
    const auto first = host::users({}, 0);
    EXPECT_EQ(first.value.items.size(), 2U);
    EXPECT_TRUE(first.value.more);
    const auto last = host::users({}, 4);
    EXPECT_EQ(last.value.items.size(), 1U);
    EXPECT_FALSE(last.value.more);
    EXPECT_EQ(all(host::users).size(), 5U);
    const auto beyond = host::users({}, 0xFFFFFFFFFFFFFFFFU);
    EXPECT_TRUE(beyond.found());
    EXPECT_TRUE(beyond.value.items.empty());
    EXPECT_FALSE(beyond.value.more);
}

TEST_F(Accounts, AListThatIsAWholeNumberOfPagesEndsWithTheLast) {
    describe("[domain]\npage size = 2\n[users]\na\nb\nc\nd\n");
    EXPECT_FALSE(host::users({}, 2).value.more);
}

TEST_F(Accounts, MembersOfLocalGroupsAreKnownBySidWhereTheyHaveOne) {
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
    EXPECT_EQ(names({page.value.items[1]}), Names{L"CORP\\eva"});
    EXPECT_EQ(description::sidText(page.value.items[2].sid), L"S-1-5-21-6-6-6-7");
    EXPECT_EQ(names({page.value.items[3]}), Names{L"other\\bob"});
    EXPECT_EQ(description::sidText(page.value.items[4].sid), L"S-1-1-0");
    EXPECT_EQ(description::sidText(page.value.items[5].sid), L"S-1-5-32-544");
    EXPECT_TRUE(host::localGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0).isMissing());
    EXPECT_EQ(host::localGroupMembers({}, {L"BUILTIN", L"Administrators", {}}, 0).value.items.size(), 2U);
}

TEST_F(Accounts, MembersOfGlobalGroupsAreKnownByName) {
    describe(domain);
    EXPECT_EQ(all(host::globalGroups, L"DC01"),
              (Names{L"CORP\\Domain Users", L"CORP\\Engineers", L"CORP\\Staff"}));
    EXPECT_EQ(all(host::globalGroups), Names{});
    const auto staff = host::globalGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0);
    EXPECT_EQ(names(staff.value.items), (Names{L"CORP\\Engineers", L"CORP\\ben"}));
    EXPECT_TRUE(staff.value.items[0].sid.empty());
    EXPECT_TRUE(host::globalGroupMembers({L"DC01"}, {L"CORP", L"Readers", {}}, 0).isMissing());
    EXPECT_TRUE(host::globalGroupMembers({}, {L"CORP", L"Staff", {}}, 0).isMissing());
}

TEST_F(Accounts, MembersComeInPagesOfTheirOwn) {
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

TEST_F(Accounts, WhereAnAccountIsRefusedSoAreTheMembers) {
    describe(std::string(domain) + "[domain groups]\n! refused ada\n[domain]\n");
    EXPECT_EQ(host::localGroupMembers({L"DC01"}, {L"CORP", L"Writers", {}}, 0).status, host::Status::refused);
    EXPECT_TRUE(host::globalGroupMembers({L"DC01"}, {L"CORP", L"Staff", {}}, 0).found());
    EXPECT_TRUE(host::localGroupMembers({}, {L"FS01", L"Others", {}}, 0).found());
}

TEST_F(Accounts, QuestionsToAnotherComputerAreCounted) {
    describe(domain);
    EXPECT_EQ(description::remoteQuestions(), 0U);
    host::membership();
    host::users({}, 0);
    host::localGroupsOf({}, {L"FS01", L"local", {}});
    host::accountOfName(L"FS01\\local");
    EXPECT_EQ(description::remoteQuestions(), 0U);
    host::users({L"DC01"}, 0);
    host::localGroupsOf({}, {L"CORP", L"ada", {}});
    host::accountOfName(L"CORP\\ada");
    host::domainController(domainNamed(L"CORP"), false, false);
    EXPECT_EQ(description::remoteQuestions(), 4U);
}

TEST_F(Accounts, GeneratedUsersAreMadeUpPageByPage) {
    describe(
        "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n[domain users]\nada\n"
        "generate users = 1000000 user%07d.x\ngenerate users = 2 z%d\n[global groups]\nDomain Users = *\n"
        "[domain groups]\nFew = user0000002.x, Z2\n");
    const auto page = host::users({L"DC01"}, 1000000);
    EXPECT_EQ(names(page.value.items), (Names{L"CORP\\user1000000.x", L"CORP\\z1", L"CORP\\z2"}));
    EXPECT_EQ(groupsOf(L"CORP", L"USER0000002.X", L"DC01"), Names{L"CORP\\Few"});
    EXPECT_EQ(groupsOf(L"CORP", L"z2", L"DC01"), Names{L"CORP\\Few"});
    EXPECT_EQ(groupsOf(L"CORP", L"z1", L"DC01"), Names{});
    const host::Sid sid = page.value.items[0].sid;
    EXPECT_EQ(host::accountOfSid(sid).value.name, L"user1000000.x");
    EXPECT_EQ(host::accountOfName(L"CORP\\user0000001.x").value.name, L"user0000001.x");
    EXPECT_TRUE(host::accountOfName(L"CORP\\user1000001.x").isMissing());
    EXPECT_TRUE(host::accountOfName(L"CORP\\user1.x").isMissing());
    EXPECT_EQ(names(host::globalGroupsOf({L"DC01"}, page.value.items[1]).value),
              Names{L"CORP\\Domain Users"});
}

TEST_F(Accounts, AListCanBeRefused) {
    describe("[users]\na\n! refused\n[groups]\n! error 1722\nG =\n");
    EXPECT_EQ(host::users({}, 0).status, host::Status::refused);
    EXPECT_EQ(host::localGroups({}, 0).failure.code, 1722U);
}

TEST_F(Accounts, AListCanBreakOff) {
    for (const char* pageSize : {"1", "2", "3", "100"}) {
        describe(std::string("[domain]\npage size = ") + pageSize +
                 "\n[users]\na\nb\nc\nd\n! error 2221 after 3\n");
        host::Answer<host::Done> end;
        EXPECT_EQ(all(host::users, {}, end).size(), 3U) << pageSize;
        EXPECT_EQ(end.status, host::Status::failed) << pageSize;
        EXPECT_EQ(end.failure.code, 2221U) << pageSize;
    }
}

TEST_F(Accounts, BreakingOffBehindTheEndIsNoBreak) {
    describe("[users]\na\nb\n! error 2221 after 3\n");
    EXPECT_EQ(all(host::users).size(), 2U);
    describe("[users]\na\nb\n! error 2221 after 2\n");
    host::Answer<host::Done> end;
    EXPECT_EQ(all(host::users, {}, end).size(), 2U);
    EXPECT_FALSE(end.found());
}

TEST_F(Accounts, GroupsOfAUserIncludeThoseReachedThroughOthers) {
    describe(domain);
    EXPECT_EQ(groupsOf(L"CORP", L"ada", L"DC01"), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(groupsOf(L"corp", L"BEN", L"dc01"), (Names{L"CORP\\Readers", L"CORP\\Writers"}));
    EXPECT_EQ(groupsOf(L"CORP", L"carla", L"DC01"), Names{});
    EXPECT_EQ(groupsOf(L"CORP", L"ada"), (Names{L"BUILTIN\\Administrators", L"FS01\\Others"}));
    EXPECT_EQ(groupsOf(L"CORP", L"ben"), Names{L"FS01\\Others"});
    EXPECT_EQ(groupsOf(L"FS01", L"local"), (Names{L"BUILTIN\\Administrators", L"FS01\\Others"}));
}

TEST_F(Accounts, GlobalGroupsAreDirectOnes) {
    describe(domain);
    const auto answer = host::globalGroupsOf({L"DC01"}, {L"CORP", L"ada", {}});
    EXPECT_EQ(names(answer.value), (Names{L"CORP\\Domain Users", L"CORP\\Engineers"}));
    EXPECT_TRUE(host::globalGroupsOf({}, {L"FS01", L"local", {}}).value.empty());
}

TEST_F(Accounts, GroupsThatHoldEachOtherEnd) {
    describe("[system]\ncomputer = A\n[users]\na\n[groups]\nOne = Two, a\nTwo = One\n");
    EXPECT_EQ(groupsOf(L"A", L"a"), (Names{L"A\\One", L"A\\Two"}));
}

TEST_F(Accounts, MembersBySid) {
    describe(std::string(domain) + "Orphans = S-1-5-21-1-2-3-9999, S-1-5-21-9-9-9-9\n");
    EXPECT_EQ(groupsOf(L"CORP", L"carla"), Names{L"FS01\\Orphans"});
    host::Account bySid;
    bySid.sid = *description::sidOf(L"S-1-5-21-1-2-3-9999");
    EXPECT_EQ(names(host::localGroupsOf({}, bySid).value), Names{L"FS01\\Orphans"});
}

TEST_F(Accounts, GroupsOfSomebodyUnknown) {
    describe(domain);
    for (const host::Account& account :
         {host::Account{L"CORP", L"nobody", {}}, host::Account{L"FS01", L"ada", {}},
          host::Account{L"OTHER", L"ada", {}}, host::Account{}}) {
        const auto answer = host::localGroupsOf({}, account);
        EXPECT_TRUE(answer.isMissing()) << description::sidText(account.sid);
    }
}

TEST_F(Accounts, GroupsOfAnAccountCanBeRefused) {
    describe(std::string(domain) + "! refused local\n[domain groups]\n! error 1722 *\n");
    EXPECT_EQ(host::localGroupsOf({}, {L"FS01", L"local", {}}).status, host::Status::refused);
    EXPECT_TRUE(host::localGroupsOf({}, {L"CORP", L"ada", {}}).found());
    EXPECT_EQ(host::localGroupsOf({L"DC01"}, {L"CORP", L"ada", {}}).failure.code, 1722U);
}

TEST_F(Accounts, Membership) {
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

TEST_F(Accounts, DomainController) {
    describe(domain);
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).value, L"DC01");
    EXPECT_EQ(host::domainController(domainNamed(L"corp.example"), true, true).value, L"DC02");
    EXPECT_EQ(host::domainController(domainNamed(L"OTHER"), false, false).failure.code, 1355U);
    describe("[domain]\njoined = yes\nname = CORP\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).failure.code, 1355U);
    describe("[domain]\nname = CORP\ncontroller = DC01\n");
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), false, false).failure.code, 1355U);
}

TEST_F(Accounts, WithoutAReachableController) {
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

TEST_F(Accounts, OnlyControllersAnswerForTheDomain) {
    describe(domain);
    EXPECT_EQ(all(host::users, L"DC01").size(), 3U);
    EXPECT_EQ(all(host::users, L"dc02.CORP.example").size(), 3U);
    EXPECT_EQ(all(host::users, L"fs01"), Names{L"FS01\\local"});
    EXPECT_EQ(host::users({L"SRV9"}, 0).failure.code, 53U);
    EXPECT_EQ(host::localGroupsOf({L"SRV9"}, {L"CORP", L"ada", {}}).failure.code, 53U);
    EXPECT_EQ(host::globalGroupsOf({L"SRV9"}, {L"CORP", L"ada", {}}).failure.code, 53U);
}

TEST_F(Accounts, OnAControllerTheDomainsAccountsAreItsOwn) {
    describe(
        "[system]\ncomputer = DC01\n[domain]\njoined = yes\nname = CORP\nrole = controller\n"
        "[domain users]\nada\n[domain groups]\nUsers = ada\n");
    EXPECT_TRUE(host::membership().value.domainController);
    EXPECT_EQ(all(host::users), Names{L"CORP\\ada"});
    EXPECT_EQ(all(host::localGroups), Names{L"BUILTIN\\Users"});
    EXPECT_EQ(groupsOf(L"CORP", L"ada"), Names{L"BUILTIN\\Users"});
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), true, false).value, L"DC01");
}

TEST_F(Accounts, LookUps) {
    describe(domain);
    const host::Account ada = host::accountOfName(L"CORP\\ADA").value;
    EXPECT_EQ(ada.name, L"ada");
    EXPECT_EQ(host::accountOfSid(ada.sid).value.name, L"ada");
    EXPECT_EQ(host::accountOfName(L"corp.example\\ada").value.domain, L"CORP");
    EXPECT_EQ(host::accountOfName(L".\\local").value.domain, L"FS01");
    EXPECT_EQ(host::accountOfName(L"local").value.domain, L"FS01");
    EXPECT_EQ(host::accountOfName(L"ada").value.domain, L"CORP");
    EXPECT_EQ(host::accountOfName(L"CORP\\Readers").value.name, L"Readers");
    EXPECT_EQ(host::accountOfName(L"BUILTIN\\administrators").value.name, L"Administrators");
    EXPECT_EQ(host::accountOfName(L"Administrators").value.domain, L"BUILTIN");
    EXPECT_EQ(host::accountOfName(L"Everyone").value.sid.authority[5], 1);
    EXPECT_EQ(host::accountOfName(L"NT AUTHORITY\\SYSTEM").value.name, L"SYSTEM");
    EXPECT_TRUE(host::accountOfName(L"nobody").isMissing());
    EXPECT_TRUE(host::accountOfName(L"FS01\\ada").isMissing());
    EXPECT_TRUE(host::accountOfName(L"OTHER\\ada").isMissing());
    EXPECT_TRUE(host::accountOfName(L"").isMissing());
    EXPECT_EQ(host::accountOfSid(*description::sidOf(L"S-1-5-18")).value.name, L"SYSTEM");
    EXPECT_TRUE(host::accountOfSid(*description::sidOf(L"S-1-5-21-9-9-9-9")).isMissing());
    EXPECT_TRUE(host::accountOfSid(host::Sid()).isMissing());
}

TEST_F(Accounts, AListedAccountReplacesAnEarlierOneOfItsName) {
    describe(
        "[system]\ncomputer = A\n[users]\nbob\nalice\nBOB = S-1-5-21-1-1-1-1\n- nobody\n[groups]\nG = bob\n"
        "g = alice\n");
    EXPECT_EQ(all(host::users), (Names{L"A\\BOB", L"A\\alice"}));
    EXPECT_EQ(all(host::localGroups), Names{L"A\\g"});
    EXPECT_EQ(groupsOf(L"A", L"bob"), Names{});
}

TEST_F(Accounts, ClearEmptiesAList) {
    describe("[system]\ncomputer = A\n[users]\na\n! refused\n[users]\nclear\nb\n");
    EXPECT_EQ(all(host::users), Names{L"A\\b"});
}

TEST(Sid, ComparesWhatCounts) {
    host::Sid one = *description::sidOf(L"S-1-5-21-1-2-3");
    host::Sid other = one;
    other.subAuthorities[10] = 7;
    EXPECT_TRUE(one == other);
    EXPECT_FALSE(one < other);
    other.subAuthorities[3] = 4;
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(one < other);
    EXPECT_FALSE(other < one);
    EXPECT_TRUE(*description::sidOf(L"S-1-5-21-1-2") < one);
    EXPECT_TRUE(*description::sidOf(L"S-1-4-99") < one);
    other.subAuthorityCount = 200;
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(one < other);
}

TEST(SidText, ThereAndBack) {
    for (const wchar_t* text : {L"S-1-5-32-544", L"S-1-1-0", L"S-1-5-21-4294967295-0-1-2",
                                L"S-1-281474976710655-1", L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15"}) {
        ASSERT_TRUE(description::sidOf(text)) << text;
        EXPECT_EQ(description::sidText(*description::sidOf(text)), text);
    }
    for (const wchar_t* text :
         {L"", L"S-1-5", L"S-1-", L"S-1-5-", L"S-1-5-32-", L"S-2-5-32", L"S-1-5-4294967296", L"S-1-5--1",
          L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15-16", L"S-1-281474976710656-1"}) {
        EXPECT_FALSE(description::sidOf(text)) << text;
    }
}
