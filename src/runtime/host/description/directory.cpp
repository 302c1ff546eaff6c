#include "runtime/host/description/directory.h"

#include <algorithm>

#include "runtime/host/description/known_sids.h"
#include "runtime/host/description/scanner.h"
#include "runtime/host/letter_case.h"

namespace description {

namespace {

// Where made-up relative identifiers begin, so that adding a user leaves the groups' identifiers as they are.
constexpr std::uint32_t firstUserRid = 1001;
constexpr std::uint32_t firstGroupRid[] = {2001, 3001, 4001};
constexpr std::uint32_t furtherUserRid = 5000001;
constexpr std::uint32_t furtherGroupRid[] = {6000001, 7000001, 8000001};
constexpr std::uint32_t roomForRids = 999;
constexpr std::uint32_t firstGeneratedRid = 10000001;

const std::wstring builtinDomain = L"BUILTIN";

std::uint32_t ridOf(std::size_t index, std::uint32_t first, std::uint32_t further) {
    return static_cast<std::uint32_t>(index < roomForRids ? first + index : further + index);
}

std::wstring generatedName(const GeneratedUsers& users, std::uint64_t number) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < users.digits) digits.insert(0, users.digits - digits.size(), L'0');
    return users.prefix + digits + users.suffix;
}

/// The number of a generated user, counted from 1; 0 when the (folded) name is not one of theirs.
std::uint64_t generatedNumber(const GeneratedUsers& users, std::wstring_view key) {
    const std::size_t around = users.prefix.size() + users.suffix.size();
    if (key.size() <= around) return 0;
    const auto number = numberOf(key.substr(users.prefix.size(), key.size() - around), users.count);
    if (!number || *number == 0 || host::folded(generatedName(users, *number)) != key) return 0;
    return *number;
}

}  // namespace

Directory::Directory(const Machine& machine, Mistakes& mistakes)
    : m_machine(machine),
      m_computerSid(
          machine.system.sid.value_or(madeUpDomainSid(L"computer " + machine.system.facts.computerName))),
      m_domainSid(machine.domain.sid.value_or(madeUpDomainSid(L"domain " + machine.domain.name))) {
    addGroups(machine.groups, GroupKind::local);
    addGroups(machine.domainGroups, GroupKind::domainLocal);
    addGroups(machine.globalGroups, GroupKind::global);
    for (std::size_t group = 0; group < m_groups.size(); ++group)
        addMembers(group, mistakes);
}

const UserList& Directory::list(Scope scope) const {
    return scope == Scope::computer ? m_machine.users : m_machine.domainUsers;
}

std::wstring_view Directory::label(Scope scope) const {
    return scope == Scope::computer ? m_machine.system.facts.computerName : m_machine.domain.name;
}

const host::Sid& Directory::domainSid(Scope scope) const {
    return scope == Scope::computer ? m_computerSid : m_domainSid;
}

const std::vector<std::size_t>& Directory::positions(GroupKind kind) const {
    return m_positions[static_cast<std::size_t>(kind)];
}

// --- Users -------------------------------------------------------------------------------------------------

std::uint64_t Directory::userCount(Scope scope) const {
    std::uint64_t count = list(scope).listed.entries().size();
    for (const GeneratedUsers& users : list(scope).generated)
        count += users.count;
    return count;
}

host::Account Directory::user(Scope scope, std::uint64_t index) const {
    const std::vector<UserEntry>& listed = list(scope).listed.entries();
    host::Account account{std::wstring(label(scope)), {}, {}};
    if (index < listed.size()) {
        const auto position = static_cast<std::size_t>(index);
        const UserEntry& entry = listed[position];
        const std::uint32_t rid =
            fixedAccount(entry.name).value_or(ridOf(position, firstUserRid, furtherUserRid));
        account.name = entry.name;
        account.sid = entry.sid.value_or(withRid(domainSid(scope), rid));
        return account;
    }
    index -= listed.size();
    std::uint32_t rid = firstGeneratedRid + static_cast<std::uint32_t>(index);
    for (const GeneratedUsers& users : list(scope).generated) {
        if (index < users.count) {
            account.name = generatedName(users, index + 1);
            account.sid = withRid(domainSid(scope), rid);
            return account;
        }
        index -= users.count;
    }
    return account;
}

std::optional<host::Account> Directory::generatedUser(Scope scope, const std::wstring& key) const {
    std::uint64_t before = list(scope).listed.entries().size();
    for (const GeneratedUsers& users : list(scope).generated) {
        const std::uint64_t number = generatedNumber(users, key);
        if (number != 0) return user(scope, before + number - 1);
        before += users.count;
    }
    return std::nullopt;
}

std::optional<host::Account> Directory::userNamed(Scope scope, std::wstring_view name) const {
    const std::wstring key = host::folded(name);
    const std::size_t position = list(scope).listed.positionOf(key);
    if (position < list(scope).listed.entries().size()) return user(scope, position);
    return generatedUser(scope, key);
}

// --- Groups ------------------------------------------------------------------------------------------------

host::Account Directory::groupAccount(const GroupEntry& entry, GroupKind kind, std::size_t index) const {
    const auto builtin = kind == GroupKind::global ? std::nullopt : builtinGroup(entry.name);
    host::Account account{entry.domain, entry.name, {}};
    if (account.domain.empty()) account.domain = builtin ? builtinDomain : std::wstring(label(scopeOf(kind)));
    const auto slot = static_cast<std::size_t>(kind);
    if (builtin && host::equalIgnoringCase(account.domain, builtinDomain)) {
        account.sid = builtinSid(*builtin);
    } else {
        const std::uint32_t made = ridOf(index, firstGroupRid[slot], furtherGroupRid[slot]);
        account.sid = withRid(domainSid(scopeOf(kind)), fixedAccount(entry.name).value_or(made));
    }
    if (entry.sid) account.sid = *entry.sid;
    return account;
}

void Directory::addGroups(const GroupList& groups, GroupKind kind) {
    for (const GroupEntry& entry : groups.listed.entries()) {
        auto& kindPositions = m_positions[static_cast<std::size_t>(kind)];
        host::Account account = groupAccount(entry, kind, kindPositions.size());
        kindPositions.push_back(m_groups.size());
        m_groupOfKey.emplace(keyOf(account), m_groups.size());
        m_groups.push_back({std::move(account), kind, &entry});
    }
}

host::Account Directory::group(GroupKind kind, std::uint64_t index) const {
    return m_groups[positions(kind)[static_cast<std::size_t>(index)]].account;
}

void Directory::addMembers(std::size_t group, Mistakes& mistakes) {
    const GroupKind kind = m_groups[group].kind;
    for (const MemberName& member : m_groups[group].entry->members) {
        if (member.text == allUsers) {
            m_holdersOfAll[indexOf(scopeOf(kind))].push_back(group);
            m_groups[group].memberKeys.emplace_back(allUsers);
            continue;
        }
        std::wstring key = memberKey(member, kind, mistakes);
        if (key.empty()) continue;
        m_holders[key].push_back(group);
        m_groups[group].memberKeys.push_back(std::move(key));
    }
}

/// The key of a member. A SID that belongs to nobody stays its own key: an orphan, as real groups have them.
std::wstring Directory::memberKey(const MemberName& member, GroupKind kind, Mistakes& mistakes) const {
    if (const auto sid = sidOf(member.text)) {
        const auto account = accountOfSid(*sid);
        return account ? keyOf(*account) : host::folded(member.text);
    }
    const std::size_t separator = member.text.find(L'\\');
    const std::wstring_view text = member.text;
    const auto key = separator == std::wstring::npos
                         ? unqualifiedKey(text, kind)
                         : qualifiedKey(text.substr(0, separator), text.substr(separator + 1));
    if (!key) reportUnknown(member, mistakes);
    return key.value_or(std::wstring());
}

void Directory::reportUnknown(const MemberName& member, Mistakes& mistakes) const {
    mistakes.add(member.place,
                 "there is no account " + quoted(member.text) +
                     " in this description, expected a user or group of it, DOMAIN\\NAME of another domain "
                     "or a SID");
}

std::optional<std::wstring> Directory::qualifiedKey(std::wstring_view domain, std::wstring_view name) const {
    bool isOwn = false;
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        if (!names(scope, domain)) continue;
        const std::wstring key = fullKey(keyDomain(scope), name);
        if (m_groupOfKey.contains(key) || userNamed(scope, name)) return key;
        const bool isDescribed = scope == Scope::computer || userCount(Scope::domain) > 0 ||
                                 !m_machine.globalGroups.listed.entries().empty();
        if (scope == Scope::domain && !isOwn && !isDescribed) return key;
        isOwn = true;
    }
    return isOwn ? std::nullopt : std::optional(fullKey(domain, name));
}

/// A bare name is looked for where its group lives, then in the domain.
std::optional<std::wstring> Directory::unqualifiedKey(std::wstring_view name, GroupKind kind) const {
    for (const Scope scope : {scopeOf(kind), Scope::domain}) {
        const std::wstring key = fullKey(keyDomain(scope), name);
        if (m_groupOfKey.contains(key) || userNamed(scope, name)) return key;
    }
    const std::wstring builtin = fullKey(builtinDomain, name);
    if (m_groupOfKey.contains(builtin)) return builtin;
    if (const auto world = worldAccount(name)) return fullKey(world->domain, world->name);
    return std::nullopt;
}

// --- Look-ups ----------------------------------------------------------------------------------------------

void Directory::buildSidIndex() const {
    m_sids.emplace();
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        for (std::uint64_t index = 0; index < list(scope).listed.entries().size(); ++index) {
            host::Account account = user(scope, index);
            if (!account.sid.empty()) m_sids->emplace(account.sid, account);
        }
    }
    for (const Group& group : m_groups)
        m_sids->emplace(group.account.sid, group.account);
}

std::optional<host::Account> Directory::accountOfSid(const host::Sid& sid) const {
    if (!m_sids) buildSidIndex();
    const auto found = m_sids->find(sid);
    if (found != m_sids->end()) return found->second;
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        const unsigned int depth = domainSid(scope).subAuthorityCount;
        const std::uint32_t rid = sid.subAuthorityCount == depth + 1 ? sid.subAuthorities[depth] : 0;
        if (rid < firstGeneratedRid || withRid(domainSid(scope), rid) != sid) continue;
        const std::uint64_t index = list(scope).listed.entries().size() + (rid - firstGeneratedRid);
        if (index < userCount(scope)) return user(scope, index);
    }
    return worldAccount(sid);
}

std::optional<host::Account> Directory::accountOfKey(const std::wstring& key) const {
    const auto group = m_groupOfKey.find(key);
    if (group != m_groupOfKey.end()) return m_groups[group->second].account;
    const std::size_t separator = key.find(L'\\');
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        if (key.substr(0, separator) == host::folded(keyDomain(scope)))
            return userNamed(scope, key.substr(separator + 1));
    }
    return std::nullopt;
}

std::optional<host::Account> Directory::accountOfName(std::wstring_view fullName) const {
    const std::size_t separator = fullName.find(L'\\');
    if (separator == std::wstring_view::npos) {
        const auto key = unqualifiedKey(fullName, GroupKind::local);
        const auto account = key ? accountOfKey(*key) : std::nullopt;
        return account ? account : worldAccount(fullName);
    }
    const std::wstring_view domain = fullName.substr(0, separator);
    const std::wstring_view name = fullName.substr(separator + 1);
    for (const Scope scope : {Scope::computer, Scope::domain}) {
        if (!names(scope, domain)) continue;
        if (auto account = accountOfKey(fullKey(keyDomain(scope), name))) return account;
    }
    const auto account = accountOfKey(fullKey(domain, name));
    return account ? account : worldAccount(fullName);
}

bool Directory::isOfDomain(const host::Sid& sid) const {
    const unsigned int depth = m_domainSid.subAuthorityCount;
    return sid.subAuthorityCount == depth + 1 && withRid(m_domainSid, sid.subAuthorities[depth]) == sid;
}

bool Directory::isOfNamesake(const host::Account& account) const {
    return host::equalIgnoringCase(label(Scope::computer), label(Scope::domain)) &&
           host::equalIgnoringCase(account.domain, label(Scope::domain)) && isOfDomain(account.sid);
}

std::wstring Directory::keyDomain(Scope scope) const {
    std::wstring name(label(scope));
    // No name of a domain ends so.
    if (scope == Scope::domain && host::equalIgnoringCase(name, label(Scope::computer))) name += L'/';
    return name;
}

std::wstring Directory::keyOf(const host::Account& account) const {
    return fullKey(isOfNamesake(account) ? keyDomain(Scope::domain) : account.domain, account.name);
}

bool Directory::names(Scope scope, std::wstring_view domain) const {
    if (host::equalIgnoringCase(domain, label(scope))) return true;
    return scope == Scope::computer ? domain == L"." : isDomainName(domain);
}

bool Directory::isDomainName(std::wstring_view name) const {
    const DomainDescription& domain = m_machine.domain;
    if (!domain.joined || name.empty()) return false;
    return host::equalIgnoringCase(name, domain.name) || host::equalIgnoringCase(name, domain.dnsName);
}

}  // namespace description
