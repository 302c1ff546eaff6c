#include "runtime/host/windows/account_server.h"

#include <algorithm>

namespace host::windows {

namespace {

/// Each name is asked for in two domains.
constexpr std::size_t groupsAtOnce = namesAtOnce / 2;

}  // namespace

const Answer<AccountDomain>& AccountServer::domain() {
    if (!m_domain.found()) m_domain = accountDomain(m_server);
    return m_domain;
}

const Answer<AccountDomain>& AccountServer::domainOfList(std::uint64_t cursor) {
    if (cursor == 0) m_domain = {};
    return domain();
}

const std::wstring& AccountServer::builtinDomain() {
    if (m_builtinDomain.empty()) m_builtinDomain = builtinDomainName(m_server);
    return m_builtinDomain;
}

std::vector<Account> AccountServer::groups(const std::vector<std::wstring>& names) {
    const std::wstring ownDomain = domain().value.name;
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
        accounts.push_back(known != m_known.end() ? known->second : Account{ownDomain, name, {}});
    }
    return accounts;
}

Answer<Account> AccountServer::group(const std::wstring& name) {
    if (!domain().found()) return Answer<Account>::without(m_domain);
    if (!m_known.contains(name)) {
        const Answer<Done> asked = lookUp({name}, 0, 1);
        if (!asked.found()) return Answer<Account>::without(asked);
    }
    const Account& account = m_known.at(name);
    return account.sid.empty() ? Answer<Account>::missing() : Answer<Account>(account);
}

Answer<Done> AccountServer::lookUp(const std::vector<std::wstring>& names, std::size_t first,
                                   std::size_t end) {
    // Never a bare name: it would be looked for in every trusted domain.
    std::vector<std::wstring> asked;
    const std::wstring& own = m_domain.found() ? m_domain.value.name : builtinDomain();
    for (std::size_t i = first; i < end; ++i)
        asked.push_back(own + L'\\' + names[i]);
    for (std::size_t i = first; i < end; ++i)
        asked.push_back(builtinDomain() + L'\\' + names[i]);
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
            m_known.insert_or_assign(names[first + i], Account{m_domain.value.name, names[first + i], {}});
        }
    }
    return Done{};
}

AccountServer& accountServer(const std::wstring& server) {
    static std::map<std::wstring, AccountServer> servers;
    return servers.try_emplace(server, server).first->second;
}

}  // namespace host::windows
