/// The lists that `NetQueryDisplayInformation` gives: the users and the global groups of a server.

#include <algorithm>

#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/netapi32/exports.h"

namespace made_up {

namespace {

constexpr DWORD userLevel = 1, groupLevel = 3;
/// A server returns no more at once, whatever it is asked for.
constexpr std::uint64_t mostAtOnce = 100;

/// The last part of an account's SID, which is all that a list tells of it.
DWORD ridOf(const host::Account& account, description::Scope scope) {
    const host::Sid& domain = directory().domainSid(scope);
    host::Sid expected = domain;
    const unsigned last = domain.subAuthorityCount;
    if (account.sid.subAuthorityCount == last + 1) {
        expected.subAuthorities[last] = account.sid.subAuthorities[last];
        ++expected.subAuthorityCount;
    }
    if (!(expected == account.sid)) endProcess("a listed account must have a SID of its domain\n");
    return account.sid.subAuthorities[last];
}

DWORD flagsOf(const host::Account& user) {
    // Machines are accounts, too.
    return user.name.ends_with(L'$') ? UF_WORKSTATION_TRUST_ACCOUNT : UF_NORMAL_ACCOUNT;
}

DWORD giveUsers(const Call& call, DWORD index, std::uint64_t most, DWORD& count, BYTE** buffer) {
    const description::Scope scope = call.scope();
    const Part part = partOf(call, index, directory().userCount(scope), most, call.users().cause);
    if (!part.isThere()) return part.code;
    handOut<NET_DISPLAY_USER>(
        call, part,
        [&](Records<NET_DISPLAY_USER>& users, std::size_t i, std::uint64_t place) {
            const host::Account user = directory().user(scope, place);
            users.text(&NET_DISPLAY_USER::usri1_name, i, user.name);
            users.text(&NET_DISPLAY_USER::usri1_comment, i, L"");
            users.text(&NET_DISPLAY_USER::usri1_full_name, i, user.name);
            users[i].usri1_flags = flagsOf(user);
            users[i].usri1_user_id = ridOf(user, scope);
            users[i].usri1_next_index = static_cast<DWORD>(i + 1 == part.count() ? part.next : place + 1);
        },
        count, buffer);
    return part.code;
}

void fillGroup(Records<NET_DISPLAY_GROUP>& groups, std::size_t i, const std::wstring& name, DWORD rid) {
    groups.text(&NET_DISPLAY_GROUP::grpi3_name, i, name);
    groups.text(&NET_DISPLAY_GROUP::grpi3_comment, i, L"");
    groups[i].grpi3_group_id = rid;
}

DWORD giveGroups(const Call& call, DWORD index, std::uint64_t most, DWORD& count, BYTE** buffer) {
    constexpr auto kind = description::GroupKind::global;
    const bool isDomain = call.scope() == description::Scope::domain;
    const std::uint64_t total = isDomain ? directory().groupCount(kind) : 1;
    const Part part =
        partOf(call, index, total, most, isDomain ? call.groups(kind).cause : description::ListCause{});
    if (!part.isThere()) return part.code;
    handOut<NET_DISPLAY_GROUP>(
        call, part,
        [&](Records<NET_DISPLAY_GROUP>& groups, std::size_t i, std::uint64_t place) {
            const host::Account group = isDomain ? directory().group(kind, place) : host::Account{};
            fillGroup(groups, i, isDomain ? group.name : noGroup,
                      isDomain ? ridOf(group, call.scope()) : DOMAIN_GROUP_RID_USERS);
            groups[i].grpi3_next_index = static_cast<DWORD>(i + 1 == part.count() ? part.next : place + 1);
        },
        count, buffer);
    return part.code;
}

}  // namespace

}  // namespace made_up

NET_API_STATUS WINAPI KvxDisplay(LPCWSTR server, DWORD level, DWORD index, DWORD wanted, DWORD preferred,
                                 LPDWORD count, BYTE** buffer) {
    using namespace made_up;
    const Call call("NetQueryDisplayInformation", server);
    *count = 0;
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (wanted == 0 || preferred == 0) return ERROR_INVALID_PARAMETER;
    // A record with its texts is taken for some 100 bytes.
    const std::uint64_t most = std::min<std::uint64_t>(
        {wanted, mostAtOnce, machine().domain.pageSize, std::max<DWORD>(preferred / 100, 1)});
    if (level == userLevel) return giveUsers(call, index, most, *count, buffer);
    if (level == groupLevel) return giveGroups(call, index, most, *count, buffer);
    return ERROR_INVALID_LEVEL;
}
