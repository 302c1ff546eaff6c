#pragma once

/// The accounts of a described machine and of its domain, ready to be asked for. Generated accounts are made
/// up when they are asked for: a million of them take no room.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/host/description/directory_keys.h"
#include "runtime/host/description/machine.h"
#include "runtime/host/description/mistakes.h"

namespace description {

/// Which groups of an account count: those of which it is a direct member; those of which one of its global
/// groups is a direct member as well; those that any chain of groups leads to.
enum class Reach { direct, throughGlobalGroups, throughAllGroups };

class Directory {
public:
    /// Refers to `machine` from then on. A member that no account of the description can be goes to
    /// `mistakes`.
    Directory(const Machine& machine, Mistakes& mistakes);
    ~Directory() = default;
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    /// The name of the computer or of the domain, and its SID, which begins those of its accounts.
    std::wstring_view label(Scope scope) const;
    const host::Sid& domainSid(Scope scope) const;

    std::uint64_t userCount(Scope scope) const;
    host::Account user(Scope scope, std::uint64_t index) const;

    std::uint64_t groupCount(GroupKind kind) const { return positions(kind).size(); }
    host::Account group(GroupKind kind, std::uint64_t index) const;

    /// The groups of `kind` to which an account belongs, in the order of the description. Nothing when there
    /// is no such account.
    std::optional<std::vector<host::Account>> groupsOf(const host::Account& account, GroupKind kind,
                                                       Reach reach) const;

    /// The direct members of a group of `kind`, of which `group` is one by name, one for each place in
    /// `first` to `end`, as far as there are so many. Their number goes to `count`. Nothing when there is no
    /// such group.
    std::optional<std::vector<host::Account>> members(GroupKind kind, const host::Account& group,
                                                      std::uint64_t first, std::uint64_t end,
                                                      std::uint64_t& count) const;

    std::optional<host::Account> accountOfSid(const host::Sid& sid) const;
    /// By "DOMAIN\name", or by a name alone: this computer's accounts come first then.
    std::optional<host::Account> accountOfName(std::wstring_view fullName) const;

    /// Whether a SID, or the domain part of a name, belongs to the domain.
    bool isOfDomain(const host::Sid& sid) const;
    bool isDomainName(std::wstring_view name) const;

    /// The user of that name, without a domain, at the computer or in the domain.
    std::optional<host::Account> userNamed(Scope scope, std::wstring_view name) const;

private:
    struct Group {
        host::Account account;
        GroupKind kind;
        const GroupEntry* entry;
        std::vector<std::wstring> memberKeys{};
    };

    const UserList& list(Scope scope) const;
    const std::vector<std::size_t>& positions(GroupKind kind) const;

    void addGroups(const GroupList& groups, GroupKind kind);
    host::Account groupAccount(const GroupEntry& entry, GroupKind kind, std::size_t index) const;
    void addMembers(std::size_t group, Mistakes& mistakes);
    void reportUnknown(const MemberName& member, Mistakes& mistakes) const;

    std::wstring memberKey(const MemberName& member, GroupKind kind, Mistakes& mistakes) const;
    std::optional<std::wstring> qualifiedKey(std::wstring_view domain, std::wstring_view name) const;
    std::optional<std::wstring> unqualifiedKey(std::wstring_view name, GroupKind kind) const;
    /// Whether the account belongs to a domain that has the name of the computer.
    bool isOfNamesake(const host::Account& account) const;
    /// What stands for the computer or the domain in keys, which tell them apart also where their names do
    /// not.
    std::wstring keyDomain(Scope scope) const;
    std::wstring keyOf(const host::Account& account) const;
    /// Whether `domain` is a name of the computer or the domain.
    bool names(Scope scope, std::wstring_view domain) const;
    std::optional<host::Account> generatedUser(Scope scope, const std::wstring& key) const;
    std::optional<host::Account> accountOfKey(const std::wstring& key) const;
    host::Account memberOfKey(const std::wstring& key) const;
    std::optional<host::Account> identify(const host::Account& account) const;
    void buildSidIndex() const;

    const Machine& m_machine;
    host::Sid m_computerSid, m_domainSid;
    std::vector<Group> m_groups;
    std::vector<std::size_t> m_positions[3];                     ///< by kind: positions in `m_groups`
    std::unordered_map<std::wstring, std::size_t> m_groupOfKey;  ///< by folded full name
    std::unordered_map<std::wstring, std::vector<std::size_t>> m_holders;  ///< by key of a member: its groups
    std::vector<std::size_t> m_holdersOfAll[2];  ///< by scope: groups with the member "*"
    mutable std::optional<std::map<host::Sid, host::Account>> m_sids;  ///< of what the description lists
};

}  // namespace description
