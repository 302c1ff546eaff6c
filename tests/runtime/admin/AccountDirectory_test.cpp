#include "runtime/admin/AccountDirectory.h"

#include <gtest/gtest.h>

namespace {

QVSid account(const wchar_t* name, std::uint32_t rid) {
    host::Account account{L"CORP", name, {}};
    if (rid != 0) {
        account.sid.subAuthorityCount = 2;
        account.sid.subAuthorities[0] = 21;
        account.sid.subAuthorities[1] = rid;
    }
    return QVSid(account);
}

class AccountDirectoryTest : public testing::Test {
protected:
    AccountDirectoryTest() {
        m_directory.add(account(L"ann", 1), 10);
        m_directory.add(account(L"ben", 0), 20);
    }

    /// The value of an account; 0 when there is none.
    int valueOf(const QVSid& account) const {
        const int* value = m_directory.find(account);
        return value != nullptr ? *value : 0;
    }

    AccountDirectory<int> m_directory;
};

TEST_F(AccountDirectoryTest, TheSidDecidesWhereBothHaveOne) {
    EXPECT_EQ(valueOf(account(L"ann", 1)), 10);
    EXPECT_EQ(valueOf(account(L"renamed", 1)), 10);
    EXPECT_EQ(valueOf(account(L"ann", 2)), 0);
}

TEST_F(AccountDirectoryTest, TheNameDecidesWhereOneHasNoSid) {
    EXPECT_EQ(valueOf(account(L"ANN", 0)), 10);
    EXPECT_EQ(valueOf(account(L"Ben", 3)), 20);
    EXPECT_EQ(valueOf(account(L"ben", 0)), 20);
    EXPECT_EQ(valueOf(account(L"carol", 0)), 0);
}

TEST_F(AccountDirectoryTest, WhatIsThereStays) {
    m_directory.add(account(L"ann", 1), 30);
    EXPECT_EQ(valueOf(account(L"ann", 1)), 10);
    m_directory.clear();
    EXPECT_EQ(valueOf(account(L"ann", 1)), 0);
    EXPECT_EQ(valueOf(account(L"ben", 0)), 0);
}

}  // namespace
