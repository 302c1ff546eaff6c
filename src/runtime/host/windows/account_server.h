#pragma once

/// One server of accounts: what it says of its domain and of its groups, each asked once.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "runtime/host/windows/local_security.h"

namespace host::windows {

class AccountServer {
public:
    explicit AccountServer(std::wstring server) : m_server(std::move(server)) {}

    /// The domain of its accounts. A failure is not remembered: the next call asks again.
    const Answer<AccountDomain>& domain();
    /// The same for a list that is being read from `cursor` on: asked anew where the list begins.
    const Answer<AccountDomain>& domainOfList(std::uint64_t cursor);

    /// The local groups of these names, in their order: of the account domain, else of the built-in one, as
    /// lists and memberships tell only names. Each is looked up once, however many accounts belong to it. A
    /// group that cannot be looked up has its name, the account domain's and no SID.
    std::vector<Account> groups(const std::vector<std::wstring>& names);

    /// The account of one name; missing where there is none, unanswered where that cannot be asked.
    Answer<Account> group(const std::wstring& name);

private:
    const std::wstring& builtinDomain();
    Answer<Done> lookUp(const std::vector<std::wstring>& names, std::size_t first, std::size_t end);

    std::wstring m_server;
    Answer<AccountDomain> m_domain;
    std::wstring m_builtinDomain;
    std::map<std::wstring, Account> m_known;
};

/// The server of that name, this computer for an empty one; kept as long as the process runs.
AccountServer& accountServer(const std::wstring& server);

}  // namespace host::windows
