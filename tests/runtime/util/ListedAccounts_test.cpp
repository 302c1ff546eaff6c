#include "runtime/util/ListedAccounts.h"
#include "runtime/host/sid_text.h"

#include <gtest/gtest.h>

#include "tests/runtime/util/account_of.h"

namespace {

ListedAccounts sample() {
    ListedAccounts accounts;
    accounts.add(accountOf(L"CORP", L"zoe", L"S-1-5-21-1-2-3-1001"));
    accounts.add(accountOf(L"CORP", L"adam", L"S-1-5-21-1-2-3-500"));
    accounts.add(accountOf(L"WS01", L"adam", L"S-1-5-21-7-8-9-1001"));
    accounts.add(accountOf(L"CORP", L"eva"));
    accounts.add(accountOf(L"", L"Everyone", L"S-1-1-0"));
    accounts.add(accountOf(L"CORP", L"", L"S-1-5-21-1-2-3-777"));
    return accounts;
}

TEST(ListedAccounts, ComeBackAsTheyWereAdded) {
    const ListedAccounts accounts = sample();
    ASSERT_EQ(accounts.size(), 6U);
    EXPECT_EQ(accounts.at(0).name, L"zoe");
    EXPECT_EQ(host::sidText(accounts.at(0).sid), L"S-1-5-21-1-2-3-1001");
    EXPECT_EQ(accounts.at(2).domain, L"WS01");
    EXPECT_EQ(host::sidText(accounts.at(2).sid), L"S-1-5-21-7-8-9-1001");
    EXPECT_TRUE(accounts.at(3).sid.empty());
    EXPECT_EQ(host::sidText(accounts.at(4).sid), L"S-1-1-0");
    EXPECT_EQ(accounts.at(5).name, L"");
    EXPECT_EQ(host::sidText(accounts.at(5).sid), L"S-1-5-21-1-2-3-777");
}

TEST(ListedAccounts, AreFoundBySid) {
    const ListedAccounts accounts = sample();
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-1-2-3-500").value_or(host::Sid())), 1U);
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-7-8-9-1001").value_or(host::Sid())), 2U);
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-1-0").value_or(host::Sid())), 4U);
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-7-8-9-500").value_or(host::Sid())), ListedAccounts::none);
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-1-2-3").value_or(host::Sid())), ListedAccounts::none);
    EXPECT_EQ(accounts.find(host::Sid()), ListedAccounts::none);
}

TEST(ListedAccounts, AreFoundByNameInAnyLetters) {
    const ListedAccounts accounts = sample();
    EXPECT_EQ(accounts.find(L"corp", L"ADAM"), 1U);
    EXPECT_EQ(accounts.find(L"WS01", L"Adam"), 2U);
    EXPECT_EQ(accounts.find(L"CORP", L"eva"), 3U);
    EXPECT_EQ(accounts.find(L"OTHER", L"eva"), ListedAccounts::none);
    EXPECT_EQ(accounts.find(L"CORP", L""), ListedAccounts::none);
}

TEST(ListedAccounts, ANameIsNoHelpWhereTheSidSaysOtherwise) {
    const ListedAccounts accounts = sample();
    EXPECT_EQ(accounts.find(accountOf(L"CORP", L"adam", L"S-1-5-21-1-2-3-501")), ListedAccounts::none);
    EXPECT_EQ(accounts.find(accountOf(L"CORP", L"adam")), 1U);
    EXPECT_EQ(accounts.find(accountOf(L"CORP", L"eva", L"S-1-5-21-1-2-3-501")), 3U);
    EXPECT_EQ(accounts.find(accountOf(L"CORP", L"other", L"S-1-5-21-1-2-3-500")), 1U);
}

TEST(ListedAccounts, TheFirstOfTwoIsFound) {
    ListedAccounts accounts = sample();
    accounts.add(accountOf(L"CORP", L"ZOE", L"S-1-5-21-1-2-3-1001"));
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-1-2-3-1001").value_or(host::Sid())), 0U);
    EXPECT_EQ(accounts.find(L"CORP", L"zoe"), 0U);
}

TEST(ListedAccounts, AnAccountAddedLaterIsFoundToo) {
    ListedAccounts accounts = sample();
    EXPECT_EQ(accounts.find(L"CORP", L"late"), ListedAccounts::none);
    accounts.add(accountOf(L"CORP", L"late", L"S-1-5-21-1-2-3-1002"));
    EXPECT_EQ(accounts.find(L"CORP", L"late"), 6U);
    EXPECT_EQ(accounts.find(host::sidOf(L"S-1-5-21-1-2-3-1002").value_or(host::Sid())), 6U);
}

TEST(ListedAccounts, ASidThatNoSystemMakesIsNotKept) {
    ListedAccounts accounts;
    host::Account broken{L"CORP", L"broken", {}};
    broken.sid.subAuthorityCount = 200;
    accounts.add(broken);
    EXPECT_TRUE(accounts.at(0).sid.empty());
    EXPECT_EQ(accounts.find(broken.sid), ListedAccounts::none);
    EXPECT_EQ(accounts.find(L"CORP", L"broken"), 0U);
}

}  // namespace
