#include "runtime/host/host.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/group_accounts.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/text.h"

namespace host {

namespace {

using Names = std::vector<std::wstring>;
using Accounts = std::vector<Account>;

template <class Item>
Names namesOf(const windows::NetItems<Item>& list, DWORD count, wchar_t* Item::*name) {
    Names names;
    for (const Item& item : list.items(count))
        names.emplace_back(item.*name);
    return names;
}

/// The account's name as its own server takes it: an account from elsewhere needs its domain.
std::wstring nameAt(const windows::GroupAccounts& groups, const Account& user) {
    const bool own = user.domain.empty() || windows::equalIgnoringCase(user.domain, groups.domain().name);
    return own ? user.name : user.domain + L'\\' + user.name;
}

/// An account that has vanished is "not there".
Answer<Accounts> without(DWORD code) {
    const bool missing = code == NERR_UserNotFound || code == ERROR_NO_SUCH_USER || code == ERROR_NONE_MAPPED;
    return missing ? Answer<Accounts>::missing() : windows::unanswered<Accounts>(code);
}

DWORD localGroupNames(const std::wstring& server, const std::wstring& user, DWORD flags, Names& names) {
    DWORD count = 0, total = 0;
    windows::NetItems<LOCALGROUP_USERS_INFO_0> list;
    const DWORD code =
        windows::netApi().userGetLocalGroups.code(windows::ServerName(server).get(), user.c_str(), 0, flags,
                                                  list.receive(), MAX_PREFERRED_LENGTH, &count, &total);
    if (code != ERROR_SUCCESS) return code;
    if (!list.areWhole(count, &LOCALGROUP_USERS_INFO_0::lgrui0_name)) return ERROR_INVALID_DATA;
    names = namesOf(list, count, &LOCALGROUP_USERS_INFO_0::lgrui0_name);
    return ERROR_SUCCESS;
}

}  // namespace

Answer<AccountPage> localGroups(const AccountSource& source, std::uint64_t cursor) {
    DWORD count = 0, total = 0;
    auto resume = static_cast<DWORD_PTR>(cursor);
    windows::NetItems<LOCALGROUP_INFO_0> list;
    const DWORD code =
        windows::netApi().localGroupEnum.code(windows::ServerName(source.server).get(), 0, list.receive(),
                                              MAX_PREFERRED_LENGTH, &count, &total, &resume);
    if (code != ERROR_SUCCESS && code != ERROR_MORE_DATA) return windows::unanswered<AccountPage>(code);
    if (!list.areWhole(count, &LOCALGROUP_INFO_0::lgrpi0_name))
        return windows::unanswered<AccountPage>(ERROR_INVALID_DATA);
    AccountPage page;
    page.items =
        windows::groupAccounts(source.server).of(namesOf(list, count, &LOCALGROUP_INFO_0::lgrpi0_name));
    page.next = resume;
    page.nextIsHandle = true;
    page.more = code == ERROR_MORE_DATA;
    return page;
}

Answer<Accounts> localGroupsOf(const AccountSource& source, const Account& user) {
    windows::GroupAccounts& groups = windows::groupAccounts(source.server);
    const std::wstring name = nameAt(groups, user);
    Names names;
    DWORD code = localGroupNames(source.server, name, LG_INCLUDE_INDIRECT, names);
    // Who may not read the domain may still read this computer's own groups.
    if (code == ERROR_ACCESS_DENIED && source.server.empty())
        code = localGroupNames(source.server, name, 0, names);
    return code == ERROR_SUCCESS ? groups.of(names) : without(code);
}

Answer<Accounts> globalGroupsOf(const AccountSource& source, const Account& user) {
    DWORD count = 0, total = 0;
    windows::NetItems<GROUP_USERS_INFO_0> list;
    const DWORD code =
        windows::netApi().userGetGroups.code(windows::ServerName(source.server).get(), user.name.c_str(), 0,
                                             list.receive(), MAX_PREFERRED_LENGTH, &count, &total);
    if (code != ERROR_SUCCESS) return without(code);
    if (!list.areWhole(count, &GROUP_USERS_INFO_0::grui0_name)) return without(ERROR_INVALID_DATA);
    return windows::groupAccounts(source.server).of(namesOf(list, count, &GROUP_USERS_INFO_0::grui0_name));
}

}  // namespace host
