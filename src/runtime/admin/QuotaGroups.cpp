#include "runtime/admin/QuotaGroups.h"

#include "runtime/admin/group_membership.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/natural_cause.h"
#include "runtime/util/DomainSession.h"

bool QuotaGroups::Matches::operator==(const Matches& other) const {
    return entries == other.entries && undecided.empty() == other.undecided.empty();
}

void QuotaGroups::match(const host::Account& group, Matches& matches) const {
    const int index = m_groups.lookUp(group);
    if (index >= 0) matches.entries.insert(index);
    if (index == QuotaEntries::undecided && matches.undecided.empty()) matches.undecided.push_back(group);
}

QuotaGroups::Matches QuotaGroups::matchesAlone(const host::Account& account, bool ofDomain) const {
    Matches matches;
    for (const host::Account& group : groupsOf(account, ofDomain))
        match(group, matches);
    return matches;
}

QuotaGroups::Matches QuotaGroups::matchesIn(const MembershipTable& table, std::size_t index) const {
    Matches matches;
    for (const std::uint32_t group : table.groupsOf(index))
        match(table.group(group), matches);
    return matches;
}

host::Answer<MembershipTable> QuotaGroups::readTable(const ListedAccounts& accounts) const {
    return DomainSession::ask([&](const host::AccountSource& source) {
        const auto isMatched = [this](const host::Account& group) {
            return m_groups.lookUp(group) != QuotaEntries::none;
        };
        const auto isMatchedOfDomain = [&isMatched](const host::Account& group) {
            return !isBuiltIn(group) && isMatched(group);
        };
        std::vector<GroupSet> sets{localGroupsAt({})};
        sets.back().isWanted = isMatched;
        // On a controller the groups of this computer are those of the domain.
        if (!source.server.empty()) {
            sets.push_back(localGroupsAt(source));
            sets.back().isWanted = isMatchedOfDomain;
        }
        sets.push_back(globalGroupsAt(source));
        sets.back().isWanted = isMatchedOfDomain;
        sets.back().onlyDirect = true;
        return MembershipTable::read(sets, host::nesting(), accounts);
    });
}

void QuotaGroups::tryTable(const host::Account& account, std::size_t index, const Matches& alone) {
    const auto agrees = [&](const MembershipTable& table, std::size_t compared, const host::Account& other) {
        try {
            return matchesIn(table, compared) == (compared == index ? alone : matchesAlone(other, true));
        } catch (QVErrno&) {
            return false;
        }
    };
    const auto read = [this](const ListedAccounts& accounts) { return readTable(accounts); };
    const auto taken = m_memberships.tryOnce(index, read, agrees);
    if (taken.found()) return;
    QVLog::mf_writeMessage(QVLogData::LEVEL_W, L"QVQuotaConfiguration::mf_getQuota", L"%s",
                           reasonText(taken, formatted(L"the members of the groups are not used after '%s'",
                                                       account.name.c_str())));
}

std::set<int> QuotaGroups::decided(const Matches& matches) const {
    for (const host::Account& group : matches.undecided)
        m_groups.find(group);
    return matches.entries;
}

std::set<int> QuotaGroups::entriesOf(const host::Account& account) {
    const bool ofDomain = isOfDomain(account);
    if (!ofDomain) return decided(matchesAlone(account, false));

    m_memberships.follow(DomainSession::listedUsers());
    const std::size_t index = m_memberships.find(account);
    if (index != ListedAccounts::none && m_memberships.table())
        return decided(matchesIn(*m_memberships.table(), index));
    const Matches alone = matchesAlone(account, true);
    if (m_memberships.isDue(index)) tryTable(account, index, alone);
    return decided(alone);
}
