#include "tests/runtime/host/described/described_accounts.h"
#include "tests/runtime/host/domain_named.h"

namespace {

using AccountSources = DescribedAccounts;

TEST_F(AccountSources, ComeInPages) {
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

TEST_F(AccountSources, AListThatIsAWholeNumberOfPagesEndsWithTheLast) {
    describe("[domain]\npage size = 2\n[users]\na\nb\nc\nd\n");
    EXPECT_FALSE(host::users({}, 2).value.more);
}

TEST_F(AccountSources, AListCanBeRefused) {
    describe("[users]\na\n! refused\n[groups]\n! error 1722\nG =\n");
    EXPECT_EQ(host::users({}, 0).status, host::Status::refused);
    EXPECT_EQ(host::localGroups({}, 0).failure.code, 1722U);
}

TEST_F(AccountSources, AListCanBreakOff) {
    for (const char* pageSize : {"1", "2", "3", "100"}) {
        describe(std::string("[domain]\npage size = ") + pageSize +
                 "\n[users]\na\nb\nc\nd\n! error 2221 after 3\n");
        host::Answer<host::Done> end;
        EXPECT_EQ(all(host::users, {}, end).size(), 3U) << pageSize;
        EXPECT_EQ(end.status, host::Status::failed) << pageSize;
        EXPECT_EQ(end.failure.code, 2221U) << pageSize;
    }
}

TEST_F(AccountSources, BreakingOffBehindTheEndIsNoBreak) {
    describe("[users]\na\nb\n! error 2221 after 3\n");
    EXPECT_EQ(all(host::users).size(), 2U);
    describe("[users]\na\nb\n! error 2221 after 2\n");
    host::Answer<host::Done> end;
    EXPECT_EQ(all(host::users, {}, end).size(), 2U);
    EXPECT_FALSE(end.found());
}

TEST_F(AccountSources, QuestionsToAnotherComputerAreCounted) {
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

TEST_F(AccountSources, OnlyControllersAnswerForTheDomain) {
    describe(domain);
    EXPECT_EQ(all(host::users, L"DC01").size(), 3U);
    EXPECT_EQ(all(host::users, L"dc02.CORP.example").size(), 3U);
    EXPECT_EQ(all(host::users, L"fs01"), Names{L"FS01\\local"});
    EXPECT_EQ(host::users({L"SRV9"}, 0).failure.code, 53U);
    EXPECT_EQ(host::localGroupsOf({L"SRV9"}, {L"CORP", L"ada", {}}).failure.code, 53U);
    EXPECT_EQ(host::globalGroupsOf({L"SRV9"}, {L"CORP", L"ada", {}}).failure.code, 53U);
}

TEST_F(AccountSources, OnAControllerTheDomainsAccountsAreItsOwn) {
    describe(
        "[system]\ncomputer = DC01\n[domain]\njoined = yes\nname = CORP\nrole = controller\n"
        "[domain users]\nada\n[domain groups]\nUsers = ada\n");
    EXPECT_TRUE(host::membership().value.domainController);
    EXPECT_EQ(all(host::users), Names{L"CORP\\ada"});
    EXPECT_EQ(all(host::localGroups), Names{L"BUILTIN\\Users"});
    EXPECT_EQ(groupsOf(L"CORP", L"ada"), Names{L"BUILTIN\\Users"});
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), true, false).value, L"DC01");
}

}  // namespace
