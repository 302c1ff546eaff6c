#include "runtime/admin/AccountDirectory.h"

#include <gtest/gtest.h>

#include "tests/runtime/util/account_of.h"

namespace {

class AccountDirectoryTest : public testing::Test {
protected:
    AccountDirectoryTest() {
        m_directory.add(QVSid(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 10);
        m_directory.add(QVSid(accountOf(L"CORP", L"ben")), 20);
    }

    /// The value of an account; 0 when there is none.
    int valueOf(const host::Account& account) const {
        const int* value = m_directory.find(QVSid(account));
        return value != nullptr ? *value : 0;
    }

    AccountDirectory<int> m_directory;
};

TEST_F(AccountDirectoryTest, TheSidDecidesWhereBothHaveOne) {
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 10);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"renamed", L"S-1-5-21-1")), 10);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ann", L"S-1-5-21-2")), 0);
}

TEST_F(AccountDirectoryTest, TheNameDecidesWhereOneHasNoSid) {
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ANN")), 10);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"Ben", L"S-1-5-21-3")), 20);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ben")), 20);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"carol")), 0);
}

TEST_F(AccountDirectoryTest, WhatIsThereStays) {
    m_directory.add(QVSid(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 30);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 10);
    m_directory.clear();
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 0);
    EXPECT_EQ(valueOf(accountOf(L"CORP", L"ben")), 0);
}

}  // namespace
