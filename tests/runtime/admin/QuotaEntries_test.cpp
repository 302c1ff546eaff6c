#include "runtime/admin/QuotaEntries.h"

#include <memory>
#include <vector>

#include "tests/runtime/error_of.h"

namespace {

/// Entries of a quota file, which a test adds one by one.
class QuotaEntriesTest : public testing::Test {
protected:
    void add(const wchar_t* domain, const wchar_t* name, std::uint32_t rid, bool asked = true) {
        m_owned.push_back(std::make_unique<QVSidQuota>(account(domain, name, rid), QVQuota(), asked));
        m_list.Add(m_owned.back().get());
    }

    static host::Account account(const wchar_t* domain, const wchar_t* name, std::uint32_t rid) {
        host::Account account{domain, name, {}};
        if (rid != 0) {
            account.sid.subAuthorityCount = 2;
            account.sid.subAuthorities[0] = 21;
            account.sid.subAuthorities[1] = rid;
        }
        return account;
    }

    int lookUp(const wchar_t* domain, const wchar_t* name, std::uint32_t rid) const {
        return QuotaEntries(m_list).lookUp(QVSid(account(domain, name, rid)));
    }

    std::vector<std::unique_ptr<QVSidQuota>> m_owned;
    QVArray<QVSidQuota*> m_list;
};

TEST_F(QuotaEntriesTest, AreFoundByTheirAccounts) {
    EXPECT_TRUE(QuotaEntries(m_list).empty());
    add(L"CORP", L"ann", 1);
    add(L"CORP", L"ben", 2);
    const QuotaEntries entries(m_list);
    EXPECT_FALSE(entries.empty());
    EXPECT_EQ(lookUp(L"CORP", L"ben", 2), 1);
    EXPECT_EQ(lookUp(L"CORP", L"carol", 3), QuotaEntries::none);
    EXPECT_EQ(entries.at(1).account().fullName(), L"CORP\\ben");
    EXPECT_FALSE(entries.needNames());
    EXPECT_FALSE(entries.haveUndecided());
}

TEST_F(QuotaEntriesTest, AnAccountThatTheSystemDoesNotKnowIsNobodyElses) {
    add(L"", L"ann", 0);
    const QuotaEntries entries(m_list);
    EXPECT_TRUE(entries.needNames());
    EXPECT_FALSE(entries.haveUndecided());
    EXPECT_EQ(lookUp(L"CORP", L"ann", 1), QuotaEntries::none);
}

TEST_F(QuotaEntriesTest, ANameThatCouldNotBeAskedForMayMeanAnybodyOfThatName) {
    add(L"", L"Ann", 0, false);
    EXPECT_TRUE(QuotaEntries(m_list).haveUndecided());
    EXPECT_EQ(lookUp(L"CORP", L"ANN", 1), QuotaEntries::undecided);
    EXPECT_EQ(lookUp(L"CORP", L"ben", 2), QuotaEntries::none);
    EXPECT_EQ(errorOf([&] { QuotaEntries(m_list).find(QVSid(account(L"CORP", L"ann", 1))); }),
              L"Operation failed: whether the quota file means 'CORP\\ann' cannot be determined");
}

TEST_F(QuotaEntriesTest, ANameWithTheDomainMeansOnlyOne) {
    add(L"CORP", L"ann", 0, false);
    EXPECT_EQ(lookUp(L"OTHER", L"ann", 1), QuotaEntries::none);
    EXPECT_EQ(lookUp(L"CORP", L"ann", 1), 0);
}

TEST_F(QuotaEntriesTest, ADnsNameOfADomainMayMeanAnyDomain) {
    add(L"corp.example", L"ann", 0, false);
    EXPECT_EQ(lookUp(L"CORP", L"ann", 1), QuotaEntries::undecided);
    add(L"", L"ben@corp.example", 0, false);
    EXPECT_EQ(lookUp(L"CORP", L"ben", 2), QuotaEntries::undecided);
}

}  // namespace
