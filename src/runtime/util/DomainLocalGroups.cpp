#include "runtime/util/DomainLocalGroups.h"

#include <algorithm>
#include <tuple>

#include "runtime/base/natural_cause.h"
#include "runtime/util/DomainSession.h"

namespace {

using Accounts = std::vector<host::Account>;

host::Answer<Accounts> askAlone(const host::Account& account) {
    return DomainSession::ask(
        [&account](const host::AccountSource& source) { return host::localGroupsOf(source, account); });
}

host::Answer<MembershipTable> readTable(const ListedAccounts& accounts) {
    return DomainSession::ask([&accounts](const host::AccountSource& source) {
        std::vector<GroupSet> sets{localGroupsAt(source), globalGroupsAt(source)};
        sets[0].isWanted = [](const host::Account&) { return true; };
        // Elsewhere no group of this computer can lead into the domain.
        if (host::nesting() == host::Nesting::throughAllGroups) sets.push_back(localGroupsAt({}));
        return MembershipTable::read(sets, host::nesting(), accounts);
    });
}

Accounts groupsIn(const MembershipTable& table, std::size_t index) {
    Accounts groups;
    for (const std::uint32_t group : table.groupsOf(index))
        groups.push_back(table.group(group));
    return groups;
}

bool areSame(Accounts left, Accounts right) {
    const auto before = [](const host::Account& one, const host::Account& other) {
        return std::tie(one.domain, one.name, one.sid) < std::tie(other.domain, other.name, other.sid);
    };
    std::sort(left.begin(), left.end(), before);
    std::sort(right.begin(), right.end(), before);
    return left == right;
}

}  // namespace

host::Answer<Accounts> DomainLocalGroups::of(const host::Account& account) {
    m_memberships.follow(DomainSession::listedUsers());
    const std::size_t index = m_memberships.find(account);
    if (index != ListedAccounts::none && m_memberships.table())
        return groupsIn(*m_memberships.table(), index);

    host::Answer<Accounts> alone = askAlone(account);
    if (!alone.found() || !m_memberships.isDue(index)) return alone;
    const auto agrees = [&](const MembershipTable& table, std::size_t compared, const host::Account& other) {
        const host::Answer<Accounts> system = compared == index ? alone : askAlone(other);
        return system.found() && areSame(system.value, groupsIn(table, compared));
    };
    const auto taken = m_memberships.tryOnce(index, readTable, agrees);
    if (taken.found()) return groupsIn(*m_memberships.table(), index);
    QVLog::mf_writeMessage(
        QVLogData::LEVEL_W, L"QVUser::mf_getDomainLocalGroupList", L"%s",
        reasonText(taken, L"the groups of all users cannot be told from the members of the groups"));
    return alone;
}
