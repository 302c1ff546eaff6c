/// The members of groups, as the network library tells them: those of local groups by SID, those of global
/// groups by name.

#include "runtime/host/description/known_sids.h"
#include "runtime/host/letter_case.h"
#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/netapi32/exports.h"

namespace made_up {

namespace {

using description::GroupKind;
using description::Scope;

struct SidOnly {
    PSID sid;
};
struct NameOnly {
    wchar_t* name;
};

/// A group by the name that the network library takes, which has no domain.
std::optional<host::Account> groupNamed(GroupKind kind, const std::wstring& name) {
    for (std::uint64_t i = 0; i < directory().groupCount(kind); ++i) {
        const host::Account group = directory().group(kind, i);
        if (host::equalIgnoringCase(group.name, name)) return group;
    }
    return std::nullopt;
}

/// Who may not ask for the groups of an account may not read the members of groups either.
description::ListCause causeOf(const Call& call, GroupKind kind) {
    const auto& causes = call.groups(kind).accountCauses;
    return causes.empty() ? description::ListCause{} : description::ListCause{causes.begin()->second, 0};
}

/// The SID of a member, also of one from a domain of which nothing is described.
host::Sid sidOf(const host::Account& member) {
    if (!member.sid.empty()) return member.sid;
    return description::withRid(description::madeUpDomainSid(member.domain),
                                description::madeUpDomainSid(member.name).subAuthorities[1]);
}

std::uint64_t memberCount(GroupKind kind, const host::Account& group) {
    std::uint64_t count = 0;
    directory().members(kind, group, 0, 0, count);
    return count;
}

/// The page of a group's members from `*resume` on.
Part readPart(const Call& call, GroupKind kind, const host::Account& group, PDWORD_PTR resume,
              std::vector<host::Account>& members, DWORD& total) {
    const std::uint64_t all = memberCount(kind, group);
    const Part part = partOf(call, resume != nullptr ? *resume : 0, all, machine().domain.memberPageSize,
                             causeOf(call, kind));
    if (!part.isThere()) return part;
    std::uint64_t unused = 0;
    members = directory().members(kind, group, part.first, part.end, unused).value();
    total = call.oddity().wrongTotal ? 0 : static_cast<DWORD>(all - part.first);
    if (resume != nullptr) *resume = static_cast<DWORD_PTR>(part.next);
    return part;
}

}  // namespace

}  // namespace made_up

using namespace made_up;

NET_API_STATUS WINAPI KvxLocalMembers(LPCWSTR server, LPCWSTR name, DWORD level, LPBYTE* buffer, DWORD,
                                      LPDWORD count, LPDWORD total, PDWORD_PTR resume) {
    const Call call("NetLocalGroupGetMembers", server);
    *count = *total = 0;
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != 0) return ERROR_INVALID_LEVEL;
    const GroupKind kind = call.localGroups();
    const auto group = groupNamed(kind, name);
    if (!group) return ERROR_NO_SUCH_ALIAS;
    std::vector<host::Account> members;
    const Part part = readPart(call, kind, *group, resume, members, *total);
    if (!part.isThere()) return part.code;
    handOut<SidOnly>(
        call, part,
        [&](Records<SidOnly>& records, std::size_t i, std::uint64_t) {
            records.sid(&SidOnly::sid, i, sidOf(members[i]));
        },
        *count, buffer);
    return part.code;
}

NET_API_STATUS WINAPI KvxGlobalMembers(LPCWSTR server, LPCWSTR name, DWORD level, LPBYTE* buffer, DWORD,
                                       LPDWORD count, LPDWORD total, PDWORD_PTR resume) {
    const Call call("NetGroupGetUsers", server);
    *count = *total = 0;
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != 0) return ERROR_INVALID_LEVEL;
    const auto group = call.scope() == Scope::domain ? groupNamed(GroupKind::global, name) : std::nullopt;
    if (!group) return NERR_GroupNotFound;
    std::vector<host::Account> members;
    const Part part = readPart(call, GroupKind::global, *group, resume, members, *total);
    if (!part.isThere()) return part.code;
    handOut<NameOnly>(
        call, part,
        [&](Records<NameOnly>& records, std::size_t i, std::uint64_t) {
            records.text(&NameOnly::name, i, members[i].name);
        },
        *count, buffer);
    return part.code;
}
