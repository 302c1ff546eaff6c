#include "runtime/util/ListMemberships.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/runtime/util/account_of.h"

namespace {

using Table = host::Answer<MembershipTable>;

const host::Account ann = accountOf(L"CORP", L"ann");
const host::Account stranger = accountOf(L"CORP", L"nobody");

/// A list of these users.
std::shared_ptr<const ListedAccounts> listOf(std::initializer_list<const wchar_t*> names) {
    ListedAccounts accounts;
    for (const wchar_t* name : names)
        accounts.add(accountOf(L"CORP", name));
    return std::make_shared<const ListedAccounts>(std::move(accounts));
}

/// A table that could be read, of no groups at all.
Table emptyTable(const ListedAccounts& accounts) {
    return MembershipTable::read({}, host::Nesting::throughAllGroups, accounts);
}

constexpr auto agreed = [](const MembershipTable&, std::size_t, const host::Account&) { return true; };

TEST(ListMemberships, WithoutAListNobodyIsInIt) {
    const ListMemberships memberships;
    EXPECT_EQ(memberships.find(ann), ListedAccounts::none);
    EXPECT_FALSE(memberships.isDue(ListedAccounts::none));
    EXPECT_EQ(memberships.table(), nullptr);
}

TEST(ListMemberships, AreDueOnceAndForAListOfSeveral) {
    ListMemberships memberships;
    memberships.follow(listOf({L"ann"}));
    EXPECT_FALSE(memberships.isDue(memberships.find(ann)));
    const auto several = listOf({L"ann", L"ben"});
    memberships.follow(several);
    EXPECT_FALSE(memberships.isDue(memberships.find(stranger)));
    EXPECT_TRUE(memberships.isDue(memberships.find(ann)));
    EXPECT_TRUE(memberships.tryOnce(0, emptyTable, agreed).found());
    EXPECT_NE(memberships.table(), nullptr);
    EXPECT_FALSE(memberships.isDue(memberships.find(ann)));
    memberships.follow(several);
    EXPECT_NE(memberships.table(), nullptr);
}

TEST(ListMemberships, AnotherListForgetsTheTable) {
    ListMemberships memberships;
    memberships.follow(listOf({L"ann", L"ben"}));
    memberships.tryOnce(0, emptyTable, agreed);
    memberships.follow(listOf({L"carol", L"ann"}));
    EXPECT_EQ(memberships.table(), nullptr);
    EXPECT_EQ(memberships.find(ann), 1U);
    EXPECT_TRUE(memberships.isDue(1));
    memberships.follow(nullptr);
    EXPECT_EQ(memberships.find(ann), ListedAccounts::none);
}

TEST(ListMemberships, WhoWasAskedForTheMiddleAndTheLastAreCompared) {
    ListMemberships memberships;
    memberships.follow(listOf({L"a", L"b", L"c", L"d", L"e", L"f"}));
    std::set<std::wstring> compared;
    memberships.tryOnce(1, emptyTable,
                        [&](const MembershipTable&, std::size_t, const host::Account& account) {
                            compared.insert(account.name);
                            return true;
                        });
    EXPECT_EQ(compared, (std::set<std::wstring>{L"b", L"d", L"f"}));
}

TEST(ListMemberships, ATableThatSaysOtherwiseIsNotTakenAndNotReadAgain) {
    ListMemberships memberships;
    memberships.follow(listOf({L"ann", L"ben"}));
    const auto taken = memberships.tryOnce(
        0, emptyTable,
        [](const MembershipTable&, std::size_t index, const host::Account&) { return index == 0; });
    EXPECT_EQ(taken.status, host::Status::failed);
    EXPECT_EQ(taken.failure.text, L"they differ from what the system says of 'ben'");
    EXPECT_EQ(memberships.table(), nullptr);
    EXPECT_FALSE(memberships.isDue(0));
}

TEST(ListMemberships, TellWhyTheTableCouldNotBeRead) {
    ListMemberships memberships;
    memberships.follow(listOf({L"ann", L"ben"}));
    const auto taken = memberships.tryOnce(
        0, [](const ListedAccounts&) { return Table::refused(5); }, agreed);
    EXPECT_EQ(taken.status, host::Status::refused);
    EXPECT_EQ(taken.failure.code, 5U);
    EXPECT_EQ(memberships.table(), nullptr);
    EXPECT_FALSE(memberships.isDue(0));
}

}  // namespace
