#include "runtime/host/host.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/sids.h"

namespace host {

namespace {

/// Whether a code says that a page was read. A group that has vanished is "not there".
bool isPage(DWORD code) {
    return code == ERROR_SUCCESS || code == ERROR_MORE_DATA;
}

Answer<AccountPage> without(DWORD code) {
    const bool missing =
        code == ERROR_NO_SUCH_ALIAS || code == ERROR_NO_SUCH_GROUP || code == NERR_GroupNotFound;
    return missing ? Answer<AccountPage>::missing() : windows::unanswered<AccountPage>(code);
}

}  // namespace

Answer<AccountPage> localGroupMembers(const AccountSource& source, const Account& group,
                                      std::uint64_t cursor) {
    DWORD count = 0, total = 0;
    auto resume = static_cast<DWORD_PTR>(cursor);
    windows::NetItems<LOCALGROUP_MEMBERS_INFO_0> list;
    // SIDs alone: names would be looked up one and all, and those of deleted accounts for a long time.
    const DWORD code = windows::netApi().localGroupGetMembers.code(
        windows::ServerName(source.server).get(), group.name.c_str(), 0, list.receive(), MAX_PREFERRED_LENGTH,
        &count, &total, &resume);
    if (!isPage(code)) return without(code);
    const auto members = list.whole(count, &LOCALGROUP_MEMBERS_INFO_0::lgrmi0_sid);
    if (!members) return without(ERROR_INVALID_DATA);
    AccountPage page;
    for (const LOCALGROUP_MEMBERS_INFO_0& member : *members)
        page.items.push_back({{}, {}, windows::sidFrom(member.lgrmi0_sid)});
    page.next = resume;
    page.nextIsHandle = true;
    page.more = code == ERROR_MORE_DATA;
    return page;
}

Answer<AccountPage> globalGroupMembers(const AccountSource& source, const Account& group,
                                       std::uint64_t cursor) {
    DWORD count = 0, total = 0;
    auto resume = static_cast<DWORD_PTR>(cursor);
    windows::NetItems<GROUP_USERS_INFO_0> list;
    const DWORD code =
        windows::netApi().groupGetUsers.code(windows::ServerName(source.server).get(), group.name.c_str(), 0,
                                             list.receive(), MAX_PREFERRED_LENGTH, &count, &total, &resume);
    if (!isPage(code)) return without(code);
    const auto members = list.whole(count, &GROUP_USERS_INFO_0::grui0_name);
    if (!members) return without(ERROR_INVALID_DATA);
    AccountPage page;
    for (const GROUP_USERS_INFO_0& member : *members)
        page.items.push_back({group.domain, member.grui0_name, {}});
    page.next = resume;
    page.nextIsHandle = true;
    page.more = code == ERROR_MORE_DATA;
    return page;
}

Nesting nesting() {
    // The server compares the SIDs of the user and of its global groups with the direct members.
    return Nesting::throughGlobalGroups;
}

}  // namespace host
