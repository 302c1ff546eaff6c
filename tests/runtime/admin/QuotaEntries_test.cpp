#include "runtime/admin/QuotaEntries.h"

#include <memory>
#include <vector>

#include "tests/runtime/error_of.h"
#include "tests/runtime/util/account_of.h"

namespace {

/// Entries of a quota file, which a test adds one by one.
class QuotaEntriesTest : public testing::Test {
protected:
    void add(const host::Account& account, bool asked = true) {
        m_owned.push_back(std::make_unique<QVSidQuota>(account, QVQuota(), asked));
        m_list.Add(m_owned.back().get());
    }

    int lookUp(const host::Account& account) const { return QuotaEntries(m_list).lookUp(account); }

    std::vector<std::unique_ptr<QVSidQuota>> m_owned;
    QVArray<QVSidQuota*> m_list;
};

TEST_F(QuotaEntriesTest, AreFoundByTheirAccounts) {
    EXPECT_TRUE(QuotaEntries(m_list).empty());
    add(accountOf(L"CORP", L"ann", L"S-1-5-21-1"));
    add(accountOf(L"CORP", L"ben", L"S-1-5-21-2"));
    const QuotaEntries entries(m_list);
    EXPECT_FALSE(entries.empty());
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ben", L"S-1-5-21-2")), 1);
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"carol", L"S-1-5-21-3")), QuotaEntries::none);
    EXPECT_EQ(entries.at(1).sid().fullName(), L"CORP\\ben");
    EXPECT_FALSE(entries.needNames());
    EXPECT_FALSE(entries.haveUndecided());
}

TEST_F(QuotaEntriesTest, AnAccountThatTheSystemDoesNotKnowIsNobodyElses) {
    add(accountOf(L"", L"ann"));
    const QuotaEntries entries(m_list);
    EXPECT_TRUE(entries.needNames());
    EXPECT_FALSE(entries.haveUndecided());
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), QuotaEntries::none);
}

TEST_F(QuotaEntriesTest, ANameThatCouldNotBeAskedForMayMeanAnybodyOfThatName) {
    add(accountOf(L"", L"Ann"), false);
    EXPECT_TRUE(QuotaEntries(m_list).haveUndecided());
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ANN", L"S-1-5-21-1")), QuotaEntries::undecided);
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ben", L"S-1-5-21-2")), QuotaEntries::none);
    EXPECT_EQ(errorOf([&] { QuotaEntries(m_list).find(accountOf(L"CORP", L"ann", L"S-1-5-21-1")); }),
              L"Operation failed: whether the quota file means 'CORP\\ann' cannot be determined");
}

TEST_F(QuotaEntriesTest, ANameWithTheDomainMeansOnlyOne) {
    add(accountOf(L"CORP", L"ann"), false);
    EXPECT_EQ(lookUp(accountOf(L"OTHER", L"ann", L"S-1-5-21-1")), QuotaEntries::none);
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), 0);
}

TEST_F(QuotaEntriesTest, ADnsNameOfADomainMayMeanAnyDomain) {
    add(accountOf(L"corp.example", L"ann"), false);
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ann", L"S-1-5-21-1")), QuotaEntries::undecided);
    add(accountOf(L"", L"ben@corp.example"), false);
    EXPECT_EQ(lookUp(accountOf(L"CORP", L"ben", L"S-1-5-21-2")), QuotaEntries::undecided);
}

}  // namespace
