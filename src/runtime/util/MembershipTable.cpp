#include "runtime/util/MembershipTable.h"

#include <algorithm>
#include <utility>

#include "runtime/host/paging.h"
#include "runtime/util/AccountIndex.h"

namespace {

using Index = std::uint32_t;
using Done = host::Answer<host::Done>;

}  // namespace

GroupSet localGroupsAt(const host::AccountSource& source) {
    GroupSet set;
    set.kind = GroupSet::Kind::local;
    set.list = [source](std::uint64_t cursor) { return host::localGroups(source, cursor); };
    set.members = [source](const host::Account& group, std::uint64_t cursor) {
        return host::localGroupMembers(source, group, cursor);
    };
    return set;
}

GroupSet globalGroupsAt(const host::AccountSource& source) {
    GroupSet set;
    set.kind = GroupSet::Kind::global;
    set.list = [source](std::uint64_t cursor) { return host::globalGroups(source, cursor); };
    set.members = [source](const host::Account& group, std::uint64_t cursor) {
        return host::globalGroupMembers(source, group, cursor);
    };
    return set;
}

/// Reads the groups, then the members of those through which a wanted group is reached, each once.
class MembershipReader {
public:
    MembershipReader(const std::vector<GroupSet>& sets, host::Nesting nesting, const ListedAccounts& accounts)
        : m_sets(sets), m_nesting(nesting), m_accounts(accounts) {}

    Done read() {
        for (const GroupSet& set : m_sets) {
            if (Done listed = listGroups(set); !listed.found()) return listed;
        }
        for (Index group = 0; group < m_groups.size(); ++group) {
            if (!m_groups[group].isWanted) continue;
            if (Done reached = reachFrom(group); !reached.found()) return reached;
        }
        return host::Done{};
    }

    MembershipTable table() {
        MembershipTable result;
        result.m_wanted = std::move(m_wanted);
        for (Group& group : m_groups)
            result.m_reached.push_back(std::move(group.reached));
        result.m_begin.assign(m_accounts.size() + 1, 0);
        for (const auto& [account, group] : m_memberships)
            ++result.m_begin[account + 1];
        for (std::size_t i = 1; i < result.m_begin.size(); ++i)
            result.m_begin[i] += result.m_begin[i - 1];
        result.m_direct.resize(m_memberships.size());
        std::vector<std::size_t> next(result.m_begin.begin(), result.m_begin.end() - 1);
        for (const auto& [account, group] : m_memberships)
            result.m_direct[next[account]++] = group;
        return result;
    }

private:
    struct Group {
        host::Account account;
        const GroupSet* set;
        bool isWanted = false;
        bool isRead = false;
        std::vector<Index> members{};  ///< groups
        std::vector<Index> reached{};  ///< wanted groups
    };

    Done listGroups(const GroupSet& set) {
        return host::readPages<host::Account>(set.list, [&](host::Account&& account) {
            const auto index = static_cast<Index>(m_groups.size());
            m_index.add(account, index);
            const bool isWanted = set.isWanted && set.isWanted(account);
            m_groups.push_back({std::move(account), &set, isWanted});
        });
    }

    /// Hands the wanted group down to every group whose members belong to it.
    Done reachFrom(Index wanted) {
        const auto number = static_cast<Index>(m_wanted.size());
        m_wanted.push_back(m_groups[wanted].account);
        std::vector<Index> open{wanted};
        while (!open.empty()) {
            const Index group = open.back();
            open.pop_back();
            std::vector<Index>& reached = m_groups[group].reached;
            if (!reached.empty() && reached.back() == number) continue;
            reached.push_back(number);
            if (Done done = readMembers(group); !done.found()) return done;
            for (const Index member : m_groups[group].members) {
                if (leadsOn(wanted, group, member)) open.push_back(member);
            }
        }
        return host::Done{};
    }

    /// Whether the members of `member`, itself one of `group`, belong to the wanted group as well.
    bool leadsOn(Index wanted, Index group, Index member) const {
        if (m_groups[wanted].set->onlyDirect) return false;
        if (m_nesting == host::Nesting::throughAllGroups) return true;
        return group == wanted && m_groups[member].set->kind == GroupSet::Kind::global;
    }

    Done readMembers(Index group) {
        if (std::exchange(m_groups[group].isRead, true)) return host::Done{};
        const std::size_t before = m_memberships.size();
        const host::Account account = m_groups[group].account;
        const Done done = host::readPages<host::Account>(
            [&](std::uint64_t cursor) { return m_groups[group].set->members(account, cursor); },
            [&](const host::Account& member) { addMember(group, member); });
        if (!done.isMissing()) return done;
        m_memberships.resize(before);
        m_groups[group].members.clear();
        return host::Done{};
    }

    void addMember(Index group, const host::Account& member) {
        const std::size_t account = m_accounts.find(member);
        if (account != ListedAccounts::none) m_memberships.emplace_back(static_cast<Index>(account), group);
        std::vector<Index>& members = m_groups[group].members;
        m_index.forEach(member, [&members](Index same) { members.push_back(same); });
    }

    const std::vector<GroupSet>& m_sets;
    host::Nesting m_nesting;
    const ListedAccounts& m_accounts;
    std::vector<Group> m_groups;
    AccountIndex<Index> m_index;
    std::vector<host::Account> m_wanted;
    std::vector<std::pair<Index, Index>> m_memberships;  ///< account, group
};

host::Answer<MembershipTable> MembershipTable::read(const std::vector<GroupSet>& sets, host::Nesting nesting,
                                                    const ListedAccounts& accounts) {
    MembershipReader reader(sets, nesting, accounts);
    const Done done = reader.read();
    if (!done.found()) return host::Answer<MembershipTable>::without(done);
    return reader.table();
}

std::vector<std::uint32_t> MembershipTable::groupsOf(std::size_t account) const {
    std::vector<std::uint32_t> groups;
    for (std::size_t i = m_begin.at(account); i < m_begin.at(account + 1); ++i) {
        const std::vector<std::uint32_t>& reached = m_reached[m_direct[i]];
        groups.insert(groups.end(), reached.begin(), reached.end());
    }
    std::sort(groups.begin(), groups.end());
    groups.erase(std::unique(groups.begin(), groups.end()), groups.end());
    return groups;
}
