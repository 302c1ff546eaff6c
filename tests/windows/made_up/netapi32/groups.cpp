/// Groups, and the groups of a user, as the network library tells them: by name alone.

#include <algorithm>
#include <cwchar>

#include "runtime/host/letter_case.h"
#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/netapi32/exports.h"

namespace made_up {

namespace {

using description::GroupKind;
using description::Scope;

struct NameOnly {
    wchar_t* name;
};

void giveNames(const Call& call, const std::vector<std::wstring>& names, DWORD* count, DWORD* total,
               BYTE** buffer) {
    const Part all{0, names.size(), 0, ERROR_SUCCESS};
    handOut<NameOnly>(
        call, all,
        [&](Records<NameOnly>& records, std::size_t i, std::uint64_t) {
            records.text(&NameOnly::name, i, names[i]);
        },
        *count, buffer);
    *total = call.oddity().wrongTotal ? 0 : static_cast<DWORD>(names.size());
}

/// The account that a server is asked for: a bare name is one of its own, and a name that the computer and
/// its domain share is the computer's.
host::Account accountAt(const Call& call, const std::wstring& name) {
    const std::size_t separator = name.find(L'\\');
    if (separator == std::wstring::npos)
        return directory().userNamed(call.scope(), name).value_or(host::Account{L"", name, {}});
    const std::wstring domain = name.substr(0, separator), user = name.substr(separator + 1);
    const bool isComputer = host::equalIgnoringCase(domain, directory().label(Scope::computer));
    if (isComputer || !directory().isDomainName(domain)) return {domain, user, {}};
    const host::Account unknown{std::wstring(directory().label(Scope::domain)), user, {}};
    return directory().userNamed(Scope::domain, user).value_or(unknown);
}

DWORD causeOf(const Call& call, GroupKind kind, const host::Account& user) {
    const auto& causes = call.groups(kind).accountCauses;
    for (const std::wstring& key : {host::folded(user.name), std::wstring(L"*")}) {
        const auto found = causes.find(key);
        if (found != causes.end()) return found->second.code;
    }
    return ERROR_SUCCESS;
}

DWORD groupNames(const Call& call, GroupKind kind, const host::Account& user, description::Reach reach,
                 std::vector<std::wstring>& names) {
    const auto groups = directory().groupsOf(user, kind, reach);
    if (!groups) return NERR_UserNotFound;
    if (const DWORD cause = causeOf(call, kind, user); cause != ERROR_SUCCESS) return cause;
    for (const host::Account& group : *groups)
        names.push_back(group.name);
    return ERROR_SUCCESS;
}

/// A question about an account of the domain leaves every computer but a controller.
void countLookUp(const wchar_t* server, const host::Account& user) {
    const bool ofDomain = directory().isDomainName(user.domain);
    if (ofDomain && !isRemote(server) && !machine().domain.isController) count("remote");
}

}  // namespace

}  // namespace made_up

using namespace made_up;

NET_API_STATUS WINAPI KvxLocalGroups(LPCWSTR server, DWORD level, LPBYTE* buffer, DWORD, LPDWORD count,
                                     LPDWORD total, PDWORD_PTR resume) {
    const Call call("NetLocalGroupEnum", server);
    *count = *total = 0;
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != 0) return ERROR_INVALID_LEVEL;
    const GroupKind kind = call.localGroups();
    const std::uint64_t all = directory().groupCount(kind);
    const Part part = partOf(call, resume != nullptr ? *resume : 0, all, machine().domain.pageSize,
                             call.groups(kind).cause);
    if (!part.isThere()) return part.code;
    handOut<NameOnly>(
        call, part,
        [&](Records<NameOnly>& records, std::size_t i, std::uint64_t place) {
            records.text(&NameOnly::name, i, directory().group(kind, place).name);
        },
        *count, buffer);
    *total = call.oddity().wrongTotal ? 0 : static_cast<DWORD>(all - part.first);
    if (resume != nullptr) *resume = static_cast<DWORD_PTR>(part.next);
    return part.code;
}

NET_API_STATUS WINAPI KvxLocalGroupsOf(LPCWSTR server, LPCWSTR user, DWORD level, DWORD flags, LPBYTE* buffer,
                                       DWORD, LPDWORD count, LPDWORD total) {
    const bool isIndirect = flags == LG_INCLUDE_INDIRECT;
    const Call call("NetUserGetLocalGroups", server);
    const Oddity indirect = isIndirect ? oddityOf("NetUserGetLocalGroups indirect", false) : Oddity();
    *count = *total = 0;
    *buffer = nullptr;
    const host::Account account = accountAt(call, user);
    countLookUp(server, account);
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (indirect.error != ERROR_SUCCESS) return indirect.error;
    if (level != 0) return ERROR_INVALID_LEVEL;
    if (flags != 0 && !isIndirect) return ERROR_INVALID_PARAMETER;
    std::vector<std::wstring> names;
    const auto reach = isIndirect ? description::Reach::throughGlobalGroups : description::Reach::direct;
    const DWORD code = groupNames(call, call.localGroups(), account, reach, names);
    if (code == ERROR_SUCCESS) giveNames(call, names, count, total, buffer);
    return code;
}

NET_API_STATUS WINAPI KvxGroupsOf(LPCWSTR server, LPCWSTR user, DWORD level, LPBYTE* buffer, DWORD,
                                  LPDWORD count, LPDWORD total) {
    const Call call("NetUserGetGroups", server);
    *count = *total = 0;
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != 0) return ERROR_INVALID_LEVEL;
    // Only a server's own users, by their bare names.
    if (std::wcschr(user, L'\\') != nullptr) return NERR_UserNotFound;
    std::vector<std::wstring> names;
    const DWORD code =
        groupNames(call, GroupKind::global, accountAt(call, user), description::Reach::direct, names);
    if (code != ERROR_SUCCESS) return code;
    if (call.scope() == Scope::computer) names = {noGroup};
    giveNames(call, names, count, total, buffer);
    return ERROR_SUCCESS;
}
