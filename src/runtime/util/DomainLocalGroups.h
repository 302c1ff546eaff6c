#pragma once

/// The domain-local groups of the domain's accounts.

#include <vector>

#include "runtime/util/ListMemberships.h"

class DomainLocalGroups {
public:
    /// The groups to which the account belongs, directly or through other groups. Where it is one of several
    /// that were listed (`DomainSession::listedUsers`), the members of all groups are read after the
    /// first question, and further ones cost nothing; where they cannot be read, each account is asked for
    /// alone. The answer is the same.
    host::Answer<std::vector<host::Account>> of(const host::Account& account);

private:
    ListMemberships m_memberships;
};
