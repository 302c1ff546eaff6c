#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "tests/runtime/host/listed_accounts.h"

namespace {

using host::Account;

TEST(HostGroups, GroupsAreAnsweredForAUser) {
    const std::vector<Account> users =
        listedAccounts([](std::uint64_t cursor) { return host::users({}, cursor); });
    ASSERT_FALSE(users.empty());
    for (const Account& user : users) {
        const auto groups = host::localGroupsOf({}, user);
        EXPECT_TRUE(groups.found() || groups.unanswered());
        for (const Account& group : groups.value)
            EXPECT_FALSE(group.name.empty());
    }
}

TEST(HostGroups, LocalGroupsCanBeListed) {
    for (const Account& group :
         listedAccounts([](std::uint64_t cursor) { return host::localGroups({}, cursor); }))
        EXPECT_FALSE(group.name.empty());
}

}  // namespace
