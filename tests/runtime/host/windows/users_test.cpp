#include <gtest/gtest.h>

#include <set>

#include "runtime/host/host.h"
#include "tests/runtime/host/listed_accounts.h"

namespace {

using host::Account;

TEST(HostUsers, ThisComputerHasUsersWithDomainAndSid) {
    const std::vector<Account> users =
        listedAccounts([](std::uint64_t cursor) { return host::users({}, cursor); });
    ASSERT_FALSE(users.empty());
    std::set<std::wstring> names;
    for (const Account& user : users) {
        EXPECT_FALSE(user.domain.empty());
        EXPECT_FALSE(user.name.empty());
        EXPECT_GE(user.sid.subAuthorityCount, 2);
        names.insert(user.name);
    }
    EXPECT_EQ(names.size(), users.size());
}

}  // namespace
