#include "runtime/host/windows/group_accounts.h"

#include <algorithm>

namespace host::windows {

namespace {

/// Each name is asked for in two domains.
constexpr std::size_t groupsAtOnce = namesAtOnce / 2;

}  // namespace

GroupAccounts::GroupAccounts(const std::wstring& server)
    : m_server(server), m_domain(accountDomain(server)), m_builtin(builtinDomainName(server)) {}

std::vector<Account> GroupAccounts::of(const std::vector<std::wstring>& names) {
    askDomain();
    std::vector<std::wstring> unknown;
    for (const std::wstring& name : names) {
        if (!m_known.contains(name)) unknown.push_back(name);
    }
    for (std::size_t first = 0; first < unknown.size(); first += groupsAtOnce) {
        lookUp(unknown, first, std::min(unknown.size(), first + groupsAtOnce));
    }
    std::vector<Account> accounts;
    accounts.reserve(names.size());
    for (const std::wstring& name : names) {
        const auto known = m_known.find(name);
        accounts.push_back(known != m_known.end() ? known->second : Account{domain().name, name, {}});
    }
    return accounts;
}

Answer<Account> GroupAccounts::one(const std::wstring& name) {
    if (!askDomain().found()) return Answer<Account>::without(m_domain);
    if (!m_known.contains(name)) {
        const Answer<Done> asked = lookUp({name}, 0, 1);
        if (!asked.found()) return Answer<Account>::without(asked);
    }
    const Account& account = m_known.at(name);
    return account.sid.empty() ? Answer<Account>::missing() : Answer<Account>(account);
}

const Answer<AccountDomain>& GroupAccounts::askDomain() {
    if (!m_domain.found()) m_domain = accountDomain(m_server);
    return m_domain;
}

Answer<Done> GroupAccounts::lookUp(const std::vector<std::wstring>& names, std::size_t first,
                                   std::size_t end) {
    // Never a bare name: it would be looked for in every trusted domain.
    std::vector<std::wstring> asked;
    const std::wstring& own = m_domain.found() ? domain().name : m_builtin;
    for (std::size_t i = first; i < end; ++i)
        asked.push_back(own + L'\\' + names[i]);
    for (std::size_t i = first; i < end; ++i)
        asked.push_back(m_builtin + L'\\' + names[i]);
    const Answer<std::vector<Account>> found = accountsOfNames(m_server, asked);
    if (!found.found()) return Answer<Done>::without(found);

    const std::size_t count = end - first;
    for (std::size_t i = 0; i < count; ++i) {
        const Account& direct = found.value[i];
        const Account& builtin = found.value[count + i];
        const bool isKnown = !direct.sid.empty() || !builtin.sid.empty();
        if (isKnown) {
            m_known.insert_or_assign(names[first + i], direct.sid.empty() ? builtin : direct);
        } else if (m_domain.found()) {
            m_known.insert_or_assign(names[first + i], Account{domain().name, names[first + i], {}});
        }
    }
    return Done{};
}

GroupAccounts& groupAccounts(const std::wstring& server) {
    static std::map<std::wstring, GroupAccounts> ofServers;
    return ofServers.try_emplace(server, server).first->second;
}

}  // namespace host::windows
