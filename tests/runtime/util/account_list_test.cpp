#include "runtime/util/account_list.h"

#include <gtest/gtest.h>

#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVUser.h"
#include "tests/runtime/util/account_of.h"

namespace {

/// A list of two pages: ann and ben, then carol; where it breaks off, the second one fails.
host::Answer<host::AccountPage> twoPages(std::uint64_t cursor, bool breaksOff) {
    host::AccountPage page;
    if (cursor == 0) {
        page.items = {accountOf(L"CORP", L"ann"), accountOf(L"CORP", L"ben")};
        page.next = 2;
        page.more = true;
        return page;
    }
    if (breaksOff) return host::Answer<host::AccountPage>::failed(1722);
    page.items = {accountOf(L"CORP", L"carol")};
    page.next = 3;
    return page;
}

TEST(AccountList, HasAnObjectForEachAccountOfAllPages) {
    OwnedArray<QVUser> users;
    EXPECT_TRUE(fillAccountList(users, [](std::uint64_t cursor) { return twoPages(cursor, false); }).found());
    ASSERT_EQ(users.GetSize(), 3);
    EXPECT_EQ(users[0]->mf_getFullName(), L"CORP\\ann");
    EXPECT_EQ(users[2]->mf_getFullName(), L"CORP\\carol");
}

TEST(AccountList, IsEmptyWhereItBrokeOff) {
    OwnedArray<QVUser> users;
    const auto end = fillAccountList(users, [](std::uint64_t cursor) { return twoPages(cursor, true); });
    EXPECT_EQ(end.status, host::Status::failed);
    EXPECT_EQ(end.failure.code, 1722U);
    EXPECT_EQ(users.GetSize(), 0);
}

TEST(AccountList, TakesAccountsThatCameInOnePiece) {
    OwnedArray<QVUser> users;
    fillAccountList(users, {accountOf(L"CORP", L"ann"), accountOf(L"CORP", L"ben")});
    ASSERT_EQ(users.GetSize(), 2);
    EXPECT_EQ(users[1]->mf_getFullName(), L"CORP\\ben");
}

}  // namespace
