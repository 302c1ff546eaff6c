/// Who belongs to which group.

#include <algorithm>

#include "runtime/host/description/directory.h"
#include "runtime/host/description/known_sids.h"
#include "runtime/host/description/scanner.h"

namespace description {

/// What a member's key stands for: an account of the description, an orphaned SID, or an account from
/// elsewhere, known by its name.
host::Account Directory::memberOfKey(const std::wstring& key) const {
    if (const auto account = accountOfKey(key)) return *account;
    if (const auto sid = sidOf(key)) return {{}, {}, *sid};
    const std::size_t separator = key.find(L'\\');
    host::Account account{key.substr(0, separator), key.substr(separator + 1), {}};
    const auto world = account.domain.empty() ? worldAccount(account.name) : worldAccount(key);
    return world.value_or(account);
}

std::optional<std::vector<host::Account>> Directory::members(GroupKind kind, const host::Account& group,
                                                             std::uint64_t first, std::uint64_t end,
                                                             std::uint64_t& count) const {
    const auto isAsked = [&](std::size_t position) {
        const host::Account& account = m_groups[position].account;
        return host::equalIgnoringCase(account.domain, group.domain) &&
               host::equalIgnoringCase(account.name, group.name);
    };
    const auto& known = positions(kind);
    const auto found = std::find_if(known.begin(), known.end(), isAsked);
    if (found == known.end()) return std::nullopt;

    std::vector<host::Account> result;
    count = 0;
    for (const std::wstring& key : m_groups[*found].memberKeys) {
        const bool isAll = key == allUsers;
        const std::uint64_t next = count + (isAll ? userCount(scopeOf(kind)) : 1);
        for (std::uint64_t place = std::max(first, count); place < std::min(end, next); ++place) {
            result.push_back(isAll ? user(scopeOf(kind), place - count) : memberOfKey(key));
        }
        count = next;
    }
    return result;
}

std::optional<host::Account> Directory::identify(const host::Account& account) const {
    // A domain may have the name of the computer: the SID tells whose account it is.
    if (!account.sid.empty()) {
        if (auto known = accountOfSid(account.sid)) return known;
    }
    if (account.name.empty()) return std::nullopt;
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        if (!host::equalIgnoringCase(account.domain, label(scope))) continue;
        if (auto known = userNamed(scope, account.name)) return known;
    }
    return std::nullopt;
}

std::optional<std::vector<host::Account>> Directory::groupsOf(const host::Account& account, GroupKind kind,
                                                              Reach through) const {
    const auto known = identify(account);
    if (!known) return std::nullopt;
    std::vector<bool> reached(m_groups.size());
    std::vector<std::size_t> open;
    const auto reach = [&](const std::vector<std::size_t>& groups) {
        for (const std::size_t group : groups) {
            if (!reached[group]) open.push_back(group);
            reached[group] = true;
        }
    };
    const auto reachHolders = [&](const std::wstring& key) {
        const auto found = m_holders.find(key);
        if (found != m_holders.end()) reach(found->second);
    };
    const bool isOfComputer =
        host::equalIgnoringCase(known->domain, keyDomain(Scope::computer)) && !isOfNamesake(*known);
    reach(m_holdersOfAll[indexOf(isOfComputer ? Scope::computer : Scope::domain)]);
    reachHolders(keyOf(*known));
    if (!known->sid.empty()) reachHolders(host::folded(host::sidText(known->sid)));
    const std::size_t direct = through == Reach::direct ? 0 : open.size();
    for (std::size_t next = 0; next < (through == Reach::throughAllGroups ? open.size() : direct); ++next) {
        const Group& holder = m_groups[open[next]];
        if (through == Reach::throughGlobalGroups && holder.kind != GroupKind::global) continue;
        reachHolders(keyOf(holder.account));
    }
    std::vector<host::Account> groups;
    for (const std::size_t position : positions(kind)) {
        if (reached[position]) groups.push_back(m_groups[position].account);
    }
    return groups;
}

}  // namespace description
