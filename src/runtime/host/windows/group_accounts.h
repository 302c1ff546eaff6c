#pragma once

/// Groups by their names: what lists and memberships of groups give is only a name.

#include <map>
#include <string>
#include <vector>

#include "runtime/host/windows/local_security.h"

namespace host::windows {

/// The groups of one server, each looked up once, however many accounts belong to it.
class GroupAccounts {
public:
    explicit GroupAccounts(const std::wstring& server);

    /// The accounts of `names`, in their order: of the account domain, else of the built-in one. A group that
    /// cannot be looked up has its name, the account domain's and no SID.
    std::vector<Account> of(const std::vector<std::wstring>& names);

    /// The account of one name; missing where there is none, unanswered where that cannot be asked.
    Answer<Account> one(const std::wstring& name);

    /// The domain, asked for again where it was not told: failures are not remembered.
    const Answer<AccountDomain>& askDomain();
    /// Empty where it could not be told.
    const AccountDomain& domain() const { return m_domain.value; }

private:
    Answer<Done> lookUp(const std::vector<std::wstring>& names, std::size_t first, std::size_t end);

    std::wstring m_server;
    Answer<AccountDomain> m_domain;
    std::wstring m_builtin;
    std::map<std::wstring, Account> m_known;
};

/// Those of `server`, kept as long as the process runs.
GroupAccounts& groupAccounts(const std::wstring& server);

}  // namespace host::windows
