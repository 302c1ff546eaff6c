/// A made-up network library: what it answers is told by environment variables, read at every call.
///
///   KVX_USERS=N           the domain has N users, user00000 to ..., and a machine account after every tenth
///   KVX_PAGE=N            at most N entries for each call (100)
///   KVX_STUCK=1           lists say "more data" for ever, without anything new
///   KVX_GROUPS=A;B        the local groups; one for each call
///   KVX_MEMBER_OF=A;B     the groups of every user
///   KVX_GLOBAL_GROUPS=A;B the domain's global groups
///   KVX_MEMBERS_A=X;Y     the members of group A: users by name, "*" for all of them, "@G" for global group
///                         G, "?" for a SID that belongs to nobody; users are in the local groups that it tells
///   KVX_MEMBER_PAGE=N     at most N members for each call (all)
///   KVX_MEMBERS_ERROR=N   members cannot be listed
///   KVX_NETAPI_ERROR=N    every question fails with code N
///   KVX_INDIRECT_ERROR=N  memberships through other groups fail with code N
///   KVX_ROLE=N            the machine's role; "none": the question fails with 1722
///   KVX_CONTROLLER=NAME   the answer to the search for a controller; without it, error 1355
///
/// Memory is counted: KvxOutstanding() tells how many buffers were not given back. So are calls: KvxCalls()
/// tells how many would have gone to another computer.

#include "runtime/host/os.h"

#include <dsgetdc.h>
#include <dsrole.h>
#include <lm.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

namespace {

long outstanding = 0;
long calls = 0;

std::wstring setting(const wchar_t* name) {
    wchar_t text[1024] = L"";
    GetEnvironmentVariableW(name, text, 1024);
    return text;
}

DWORD number(const wchar_t* name, DWORD otherwise) {
    const std::wstring text = setting(name);
    return text.empty() ? otherwise : static_cast<DWORD>(std::wcstoul(text.c_str(), nullptr, 10));
}

std::vector<std::wstring> list(const wchar_t* name) {
    std::vector<std::wstring> items;
    const std::wstring text = setting(name);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(L';', at), text.size());
        items.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return items;
}

BYTE* memory(std::size_t size) {
    ++outstanding;
    return static_cast<BYTE*>(std::calloc(1, size + 16));
}

/// Records of `count` names, with the names behind them, as the system lays them out.
template <class Record, class Fill>
BYTE* records(std::size_t count, Fill fill) {
    constexpr std::size_t nameUnits = 64;
    BYTE* block = memory(count * (sizeof(Record) + nameUnits * sizeof(wchar_t)));
    auto* first = reinterpret_cast<Record*>(block);
    auto* names = reinterpret_cast<wchar_t*>(block + count * sizeof(Record));
    for (std::size_t i = 0; i < count; ++i)
        fill(first[i], names + i * nameUnits, i);
    return block;
}

bool isMachine(DWORD index) {
    return index % 11 == 10;
}

wchar_t* copy(wchar_t* to, const std::wstring& text) {
    return std::wcscpy(to, text.c_str());
}

struct Names {
    wchar_t* only;
};

BYTE* namesOnly(const std::vector<std::wstring>& names) {
    return records<Names>(names.size(), [&](Names& record, wchar_t* room, std::size_t i) {
        record.only = copy(room, names[i]);
    });
}

void count(const wchar_t* server, const wchar_t* user = L"") {
    if (server != nullptr || std::wcschr(user, L'\\') != nullptr) ++calls;
}

// The domain's SID is S-1-5-21-11-22-33; users have RIDs from 1000, global groups from 900000.
constexpr DWORD firstGlobalGroup = 900000;

void putSid(void* room, DWORD rid) {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    InitializeSid(room, &authority, 5);
    const DWORD parts[] = {21, 11, 22, 33, rid};
    for (DWORD i = 0; i < 5; ++i)
        *GetSidSubAuthority(room, i) = parts[i];
}

/// "user00012", a machine account being behind every tenth.
std::wstring userName(DWORD number) {
    wchar_t name[32] = L"";
    std::swprintf(name, 32, L"user%05lu", number);
    return name;
}

DWORD ridOfUser(const std::wstring& name) {
    const auto index = static_cast<DWORD>(std::wcstoul(name.c_str() + 4, nullptr, 10));
    return 1000 + index + index / 10;
}

DWORD ridOfGroup(const std::wstring& name) {
    const std::vector<std::wstring> groups = list(L"KVX_GLOBAL_GROUPS");
    return firstGlobalGroup +
           static_cast<DWORD>(std::find(groups.begin(), groups.end(), name) - groups.begin());
}

bool isOneOf(const std::vector<std::wstring>& names, const std::wstring& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<std::wstring> membersOf(const std::wstring& group) {
    std::vector<std::wstring> members;
    for (const std::wstring& member : list((L"KVX_MEMBERS_" + group).c_str())) {
        const DWORD users = member == L"*" ? number(L"KVX_USERS", 0) : 0;
        for (DWORD i = 0; i < users; ++i)
            members.push_back(userName(i));
        if (member != L"*") members.push_back(member);
    }
    return members;
}

bool holds(const std::wstring& group, const std::wstring& user, bool throughOthers) {
    for (const std::wstring& member : list((L"KVX_MEMBERS_" + group).c_str())) {
        if (member == user || member == L"*") return true;
        if (throughOthers && member[0] == L'@' && holds(member.substr(1), user, false)) return true;
    }
    return false;
}

/// The part of `items` that a call gives, and where the next one begins.
std::vector<std::wstring> page(const std::vector<std::wstring>& items, PDWORD_PTR resume) {
    const std::size_t first = std::min<std::size_t>(*resume, items.size());
    const std::size_t size = number(L"KVX_MEMBER_PAGE", MAXDWORD);
    const std::size_t end = first + std::min(size, items.size() - first);
    *resume = end;
    const auto begin = items.begin();
    return {begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end)};
}

NET_API_STATUS pageOfGroups(DWORD index, DWORD wanted, LPDWORD count, BYTE** buffer) {
    const std::vector<std::wstring> groups = list(L"KVX_GLOBAL_GROUPS");
    const auto total = static_cast<DWORD>(groups.size());
    *count = index < total ? std::min({wanted, number(L"KVX_PAGE", 100), total - index}) : 0;
    *buffer = records<NET_DISPLAY_GROUP>(*count, [&](NET_DISPLAY_GROUP& group, wchar_t* room, std::size_t i) {
        const DWORD at = index + static_cast<DWORD>(i);
        group.grpi3_name = copy(room, groups[at]);
        group.grpi3_group_id = firstGlobalGroup + at;
        group.grpi3_next_index = at + 1;
    });
    return index + *count < total ? static_cast<DWORD>(ERROR_MORE_DATA) : 0;
}

}  // namespace

extern "C" {

__declspec(dllexport) long KvxOutstanding() {
    return outstanding;
}

__declspec(dllexport) long KvxCalls() {
    return calls;
}

__declspec(dllexport) NET_API_STATUS WINAPI KvxBufferFree(LPVOID buffer) {
    if (buffer != nullptr) --outstanding;
    std::free(buffer);
    return 0;
}

__declspec(dllexport) void WINAPI KvxRoleFree(PVOID buffer) {
    KvxBufferFree(buffer);
}

__declspec(dllexport) NET_API_STATUS WINAPI
    KvxDisplay(LPCWSTR server, DWORD level, DWORD index, DWORD wanted, DWORD, LPDWORD count, BYTE** buffer) {
    ::count(server);
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    if (level == 3) return pageOfGroups(index, wanted, count, buffer);
    const DWORD users = number(L"KVX_USERS", 0);
    const DWORD total = users + users / 10;
    const DWORD page = std::min(wanted, number(L"KVX_PAGE", 100));
    const bool stuck = number(L"KVX_STUCK", 0) != 0;
    *count = index < total ? std::min(page, total - index) : 0;
    *buffer = records<NET_DISPLAY_USER>(*count, [&](NET_DISPLAY_USER& user, wchar_t* room, std::size_t i) {
        const DWORD at = index + static_cast<DWORD>(i);
        const DWORD number = at - (at + 1) / 11;
        user.usri1_name =
            copy(room, isMachine(at) ? L"PC" + std::to_wstring(number) + L"$" : userName(number));
        user.usri1_flags = isMachine(at) ? UF_WORKSTATION_TRUST_ACCOUNT : UF_NORMAL_ACCOUNT;
        user.usri1_user_id = 1000 + at;
        user.usri1_next_index = stuck ? index : at + 1;
    });
    return stuck || index + *count < total ? static_cast<DWORD>(ERROR_MORE_DATA) : 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI KvxModals(LPCWSTR server, DWORD, LPBYTE* buffer) {
    count(server);
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    struct Domain {
        USER_MODALS_INFO_2 info;
        wchar_t name[8];
        BYTE sid[SECURITY_MAX_SID_SIZE];
    };
    auto* domain = reinterpret_cast<Domain*>(*buffer = memory(sizeof(Domain)));
    domain->info.usrmod2_domain_name = copy(domain->name, L"CORP");
    domain->info.usrmod2_domain_id = domain->sid;
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    InitializeSid(domain->sid, &authority, 4);
    const DWORD parts[] = {21, 11, 22, 33};
    for (DWORD i = 0; i < 4; ++i)
        *GetSidSubAuthority(domain->sid, i) = parts[i];
    return 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI KvxLocalGroups(LPCWSTR server, DWORD, LPBYTE* buffer, DWORD,
                                                           LPDWORD count, LPDWORD total, PDWORD_PTR resume) {
    ::count(server);
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    const std::vector<std::wstring> groups = list(L"KVX_GROUPS");
    const std::size_t at = *resume;
    std::vector<std::wstring> part;
    if (at < groups.size()) part.push_back(groups[at]);
    *buffer = namesOnly(part);
    *count = static_cast<DWORD>(part.size());
    *total = static_cast<DWORD>(groups.size());
    *resume = at + part.size();
    return *resume < groups.size() ? static_cast<DWORD>(ERROR_MORE_DATA) : 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI
    KvxLocalGroupsOf(LPCWSTR server, LPCWSTR user, DWORD, DWORD flags, LPBYTE* buffer, DWORD, LPDWORD count,
                     LPDWORD total) {
    ::count(server, user);
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    if (const DWORD error = number(L"KVX_INDIRECT_ERROR", 0); error != 0 && flags != 0) return error;
    if (std::wcsstr(user, L"nobody") != nullptr) return NERR_UserNotFound;
    std::vector<std::wstring> groups = list(L"KVX_MEMBER_OF");
    if (std::wcschr(user, L'\\') != nullptr) groups.emplace_back(user);
    for (const std::wstring& group : list(L"KVX_GROUPS")) {
        const wchar_t* separator = std::wcschr(user, L'\\');
        if (holds(group, separator != nullptr ? separator + 1 : user, flags != 0)) groups.push_back(group);
    }
    *buffer = namesOnly(groups);
    *count = *total = static_cast<DWORD>(groups.size());
    return 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI
    KvxGroupsOf(LPCWSTR server, LPCWSTR user, DWORD, LPBYTE* buffer, DWORD, LPDWORD count, LPDWORD total) {
    DWORD unused = 0;
    return KvxLocalGroupsOf(server, user, 0, 0, buffer, unused, count, total);
}

__declspec(dllexport) NET_API_STATUS WINAPI
    KvxLocalMembers(LPCWSTR server, LPCWSTR group, DWORD level, LPBYTE* buffer, DWORD, LPDWORD count,
                    LPDWORD total, PDWORD_PTR resume) {
    ::count(server);
    if (const DWORD error = number(L"KVX_MEMBERS_ERROR", 0); error != 0) return error;
    if (level != 0) return ERROR_INVALID_LEVEL;
    if (!isOneOf(list(L"KVX_GROUPS"), group)) return ERROR_NO_SUCH_ALIAS;
    const std::vector<std::wstring> all = membersOf(group);
    const std::vector<std::wstring> part = page(all, resume);
    *buffer = records<LOCALGROUP_MEMBERS_INFO_0>(
        part.size(), [&](LOCALGROUP_MEMBERS_INFO_0& member, wchar_t* room, std::size_t i) {
            const bool isGroup = part[i][0] == L'@';
            putSid(room, part[i] == L"?" ? 4000000
                         : isGroup       ? ridOfGroup(part[i].substr(1))
                                         : ridOfUser(part[i]));
            member.lgrmi0_sid = room;
        });
    *count = static_cast<DWORD>(part.size());
    *total = static_cast<DWORD>(all.size());
    return *resume < all.size() ? static_cast<DWORD>(ERROR_MORE_DATA) : 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI
    KvxGlobalMembers(LPCWSTR server, LPCWSTR group, DWORD level, LPBYTE* buffer, DWORD, LPDWORD count,
                     LPDWORD total, PDWORD_PTR resume) {
    ::count(server);
    if (const DWORD error = number(L"KVX_MEMBERS_ERROR", 0); error != 0) return error;
    if (level != 0) return ERROR_INVALID_LEVEL;
    if (!isOneOf(list(L"KVX_GLOBAL_GROUPS"), group)) return NERR_GroupNotFound;
    const std::vector<std::wstring> all = membersOf(group);
    const std::vector<std::wstring> part = page(all, resume);
    *buffer = namesOnly(part);
    *count = static_cast<DWORD>(part.size());
    *total = static_cast<DWORD>(all.size());
    return *resume < all.size() ? static_cast<DWORD>(ERROR_MORE_DATA) : 0;
}

__declspec(dllexport) NET_API_STATUS WINAPI KvxJoin(LPCWSTR, LPWSTR* name, PNETSETUP_JOIN_STATUS status) {
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    *name = copy(reinterpret_cast<wchar_t*>(memory(32)), L"CORP");
    *status = NetSetupDomainName;
    return 0;
}

__declspec(dllexport) DWORD WINAPI KvxRole(LPCWSTR, DSROLE_PRIMARY_DOMAIN_INFO_LEVEL, PBYTE* buffer) {
    if (const DWORD error = number(L"KVX_NETAPI_ERROR", 0); error != 0) return error;
    const std::wstring role = setting(L"KVX_ROLE");
    if (role == L"none") return RPC_S_SERVER_UNAVAILABLE;
    struct Domain {
        DSROLE_PRIMARY_DOMAIN_INFO_BASIC info;
        wchar_t flat[16];
        wchar_t dns[32];
    };
    auto* domain = reinterpret_cast<Domain*>(*buffer = memory(sizeof(Domain)));
    domain->info.MachineRole = static_cast<DSROLE_MACHINE_ROLE>(number(L"KVX_ROLE", 0));
    const bool joined = domain->info.MachineRole != DsRole_RoleStandaloneWorkstation &&
                        domain->info.MachineRole != DsRole_RoleStandaloneServer;
    domain->info.DomainNameFlat = copy(domain->flat, joined ? L"CORP" : L"WORKGROUP");
    if (joined) domain->info.DomainNameDns = copy(domain->dns, L"corp.example");
    return 0;
}

__declspec(dllexport) DWORD WINAPI
    KvxDcName(LPCWSTR, LPCWSTR domain, GUID*, LPCWSTR, ULONG flags, PDOMAIN_CONTROLLER_INFOW* info) {
    ++calls;
    const std::wstring controller = setting(L"KVX_CONTROLLER");
    if (controller.empty()) return ERROR_NO_SUCH_DOMAIN;
    const ULONG kind = std::wcschr(domain, L'.') != nullptr ? DS_IS_DNS_NAME : DS_IS_FLAT_NAME;
    if ((flags & (DS_IS_DNS_NAME | DS_IS_FLAT_NAME)) != kind) return ERROR_INVALID_FLAGS;
    struct Controller {
        DOMAIN_CONTROLLER_INFOW info;
        wchar_t name[64];
    };
    auto* found = reinterpret_cast<Controller*>(memory(sizeof(Controller)));
    std::wstring name = L"\\\\" + controller;
    if ((flags & DS_PDC_REQUIRED) != 0) name += L"-primary";
    if ((flags & DS_FORCE_REDISCOVERY) != 0) name += L"-again";
    found->info.DomainControllerName = copy(found->name, name);
    *info = &found->info;
    return 0;
}

}  // extern "C"
