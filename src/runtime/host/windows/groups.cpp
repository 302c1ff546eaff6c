#include "runtime/host/host.h"
#include "runtime/host/letter_case.h"
#include "runtime/host/windows/account_server.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/sids.h"

namespace host {

namespace {

/// No server returns more global groups at once.
constexpr DWORD groupsOfPage = 100;

using Names = std::vector<std::wstring>;
using Accounts = std::vector<Account>;

/// Nothing where a name is missing.
template <class Item>
std::optional<Names> namesOf(const windows::NetItems<Item>& list, DWORD count, wchar_t* Item::*name) {
    const auto items = list.whole(count, name);
    if (!items) return std::nullopt;
    Names names;
    for (const Item& item : *items)
        names.emplace_back(item.*name);
    return names;
}

/// The account's name as its own server takes it: an account from elsewhere needs its domain.
std::wstring nameAt(windows::AccountServer& server, const Account& user) {
    const AccountDomain& own = server.domain().value;  // empty where it is not told
    const bool hasOwnName = user.domain.empty() || equalIgnoringCase(user.domain, own.name);
    if (!hasOwnName) return user.domain + L'\\' + user.name;
    if (user.domain.empty() || user.sid.empty() || own.sid.empty() || own.has(user.sid)) return user.name;
    // Where this computer's domain has the computer's name, only its other name tells them apart.
    const Membership member = membership().value;
    if (!member.joined || !equalIgnoringCase(member.domainName, own.name)) return user.name;
    return (member.dnsDomainName.empty() ? user.domain : member.dnsDomainName) + L'\\' + user.name;
}

/// An account that has vanished is "not there". A name that could not be mapped need not have vanished: its
/// domain may be out of reach.
Answer<Accounts> without(DWORD code) {
    const bool missing = code == NERR_UserNotFound || code == ERROR_NO_SUCH_USER;
    return missing ? Answer<Accounts>::missing() : windows::unanswered<Accounts>(code);
}

DWORD localGroupNames(const std::wstring& server, const std::wstring& user, DWORD flags, Names& names) {
    DWORD count = 0, total = 0;
    windows::NetItems<LOCALGROUP_USERS_INFO_0> list;
    const DWORD code =
        windows::netApi().userGetLocalGroups.code(windows::ServerName(server).get(), user.c_str(), 0, flags,
                                                  list.receive(), MAX_PREFERRED_LENGTH, &count, &total);
    if (code != ERROR_SUCCESS) return code;
    auto found = namesOf(list, count, &LOCALGROUP_USERS_INFO_0::lgrui0_name);
    if (!found) return ERROR_INVALID_DATA;
    names = std::move(*found);
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
    const auto names = namesOf(list, count, &LOCALGROUP_INFO_0::lgrpi0_name);
    if (!names) return windows::unanswered<AccountPage>(ERROR_INVALID_DATA);
    AccountPage page;
    page.items = windows::accountServer(source.server).groups(*names);
    page.next = resume;
    page.nextIsHandle = true;
    page.more = code == ERROR_MORE_DATA;
    return page;
}

Answer<AccountPage> globalGroups(const AccountSource& source, std::uint64_t cursor) {
    const Answer<AccountDomain>& domain = windows::accountServer(source.server).domainOfList(cursor);
    if (!domain.found()) return Answer<AccountPage>::without(domain);

    constexpr DWORD groupLevel = 3;
    DWORD count = 0;
    windows::NetItems<NET_DISPLAY_GROUP> list;
    const DWORD code = windows::netApi().queryDisplayInformation.code(
        windows::ServerName(source.server).get(), groupLevel, static_cast<DWORD>(cursor), groupsOfPage,
        MAX_PREFERRED_LENGTH, &count, list.receive());
    if (code != ERROR_SUCCESS && code != ERROR_MORE_DATA) return windows::unanswered<AccountPage>(code);
    const auto groups = list.whole(count, &NET_DISPLAY_GROUP::grpi3_name);
    if (!groups) return windows::unanswered<AccountPage>(ERROR_INVALID_DATA);
    AccountPage page;
    page.next = cursor;
    page.more = code == ERROR_MORE_DATA;
    for (const NET_DISPLAY_GROUP& group : *groups) {
        page.next = group.grpi3_next_index;
        page.items.push_back({domain.value.name, group.grpi3_name,
                              windows::accountIn(domain.value.sid, group.grpi3_group_id)});
    }
    return page;
}

Answer<Accounts> localGroupsOf(const AccountSource& source, const Account& user) {
    windows::AccountServer& server = windows::accountServer(source.server);
    const std::wstring name = nameAt(server, user);
    Names names;
    DWORD code = localGroupNames(source.server, name, LG_INCLUDE_INDIRECT, names);
    // Who may not read the domain may still read this computer's own groups.
    if (code == ERROR_ACCESS_DENIED && source.server.empty())
        code = localGroupNames(source.server, name, 0, names);
    return code == ERROR_SUCCESS ? server.groups(names) : without(code);
}

Answer<Accounts> globalGroupsOf(const AccountSource& source, const Account& user) {
    DWORD count = 0, total = 0;
    windows::NetItems<GROUP_USERS_INFO_0> list;
    const DWORD code =
        windows::netApi().userGetGroups.code(windows::ServerName(source.server).get(), user.name.c_str(), 0,
                                             list.receive(), MAX_PREFERRED_LENGTH, &count, &total);
    if (code != ERROR_SUCCESS) return without(code);
    const auto names = namesOf(list, count, &GROUP_USERS_INFO_0::grui0_name);
    return names ? windows::accountServer(source.server).groups(*names) : without(ERROR_INVALID_DATA);
}

}  // namespace host
