#pragma once

/// To which groups the accounts of a list belong, from the members of the groups: what it takes to know grows
/// with the groups and their members, not with a question for every account.

#include <cstdint>
#include <functional>
#include <vector>

#include "runtime/host/host.h"
#include "runtime/util/ListedAccounts.h"

/// Groups that are kept in one place, and how to ask for them.
struct GroupSet {
    enum class Kind { local, global };
    Kind kind = Kind::local;
    std::function<host::Answer<host::AccountPage>(std::uint64_t cursor)> list;
    std::function<host::Answer<host::AccountPage>(const host::Account& group, std::uint64_t cursor)> members;

    /// Whether an answer can hold this group; without it, none of the set. Members of other groups are read
    /// only where such a group is reached through them.
    std::function<bool(const host::Account& group)> isWanted;
    /// Whether only the direct members of a wanted group count, as `host::globalGroupsOf` has it.
    bool onlyDirect = false;
};

/// The groups of one source, as sets whose groups are not wanted unless the caller says so.
GroupSet localGroupsAt(const host::AccountSource& source);
GroupSet globalGroupsAt(const host::AccountSource& source);

class MembershipTable {
public:
    /// Reads groups and members. The table is about the accounts of `accounts` and names them by their index;
    /// it does not keep the list. Without an answer when anything could not be read: a part is never taken
    /// for the whole. A group that vanishes meanwhile has no members.
    static host::Answer<MembershipTable> read(const std::vector<GroupSet>& sets, host::Nesting nesting,
                                              const ListedAccounts& accounts);

    /// The wanted groups of an account, in the order of the sets and their lists; indexes for `group`.
    std::vector<std::uint32_t> groupsOf(std::size_t account) const;

    const host::Account& group(std::uint32_t index) const { return m_wanted[index]; }

private:
    friend class MembershipReader;

    std::vector<host::Account> m_wanted;
    /// By group that was read: the wanted groups to which its direct members belong, ascending.
    std::vector<std::vector<std::uint32_t>> m_reached;
    /// By account: where its direct groups begin in `m_direct`; one more at the end.
    std::vector<std::size_t> m_begin;
    std::vector<std::uint32_t> m_direct;
};
