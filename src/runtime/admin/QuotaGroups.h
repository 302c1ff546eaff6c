#pragma once

/// To which groups with entries in the quota file an account belongs.

#include <set>
#include <vector>

#include "runtime/admin/QuotaEntries.h"
#include "runtime/util/ListMemberships.h"

class QuotaGroups {
public:
    /// `groups`: the entries of groups; they must outlive this object.
    explicit QuotaGroups(const QuotaEntries& groups) : m_groups(groups) {}

    /// The indexes of the entries whose groups the account belongs to (`groupsOf`). Where it is one of
    /// several that were listed (`DomainSession::listedUsers`), the members of these groups are read
    /// after the first question, and further ones cost nothing; where they cannot be read, each account is
    /// asked for alone. The answer is the same. Throws `QVErrno` as `groupsOf` and `QuotaEntries::find` do.
    std::set<int> entriesOf(const host::Account& account);

private:
    /// What a list of groups comes to.
    struct Matches {
        std::set<int> entries;
        std::vector<host::Account> undecided;  ///< the first one at most
        bool operator==(const Matches& other) const;
    };

    void match(const host::Account& group, Matches& matches) const;
    Matches matchesAlone(const host::Account& account, bool ofDomain) const;
    Matches matchesIn(const MembershipTable& table, std::size_t index) const;
    host::Answer<MembershipTable> readTable(const ListedAccounts& accounts) const;
    void tryTable(const host::Account& account, std::size_t index, const Matches& alone);
    std::set<int> decided(const Matches& matches) const;

    const QuotaEntries& m_groups;
    ListMemberships m_memberships;
};
