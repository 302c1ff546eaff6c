#include "runtime/host/host.h"
#include "runtime/host/windows/account_server.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/sids.h"

namespace host {

namespace {

/// No server returns more at once.
constexpr DWORD usersOfPage = 100;

bool belongsToMachine(const NET_DISPLAY_USER& user) {
    constexpr DWORD trusts =
        UF_WORKSTATION_TRUST_ACCOUNT | UF_SERVER_TRUST_ACCOUNT | UF_INTERDOMAIN_TRUST_ACCOUNT;
    return (user.usri1_flags & trusts) != 0;
}

/// Appends what the system lists from `index` on and moves `page` on; returns the system's code.
DWORD readPart(const wchar_t* server, DWORD index, const AccountDomain& domain, AccountPage& page) {
    constexpr DWORD userLevel = 1;
    DWORD count = 0;
    windows::NetItems<NET_DISPLAY_USER> part;
    const DWORD code = windows::netApi().queryDisplayInformation.code(
        server, userLevel, index, usersOfPage, MAX_PREFERRED_LENGTH, &count, part.receive());
    if (code != ERROR_SUCCESS && code != ERROR_MORE_DATA) return code;
    const auto users = part.whole(count, &NET_DISPLAY_USER::usri1_name);
    if (!users) return ERROR_INVALID_DATA;
    page.next = index;
    page.more = code == ERROR_MORE_DATA;
    for (const NET_DISPLAY_USER& user : *users) {
        page.next = user.usri1_next_index;
        if (belongsToMachine(user)) continue;
        page.items.push_back(
            {domain.name, user.usri1_name, windows::accountIn(domain.sid, user.usri1_user_id)});
    }
    return ERROR_SUCCESS;
}

}  // namespace

Answer<AccountPage> users(const AccountSource& source, std::uint64_t cursor) {
    const Answer<AccountDomain>& domain = windows::accountServer(source.server).domainOfList(cursor);
    if (!domain.found()) return Answer<AccountPage>::without(domain);

    AccountPage page;
    page.next = cursor;
    // A part may hold nothing but machines; a page without users would look like a list that makes no
    // progress. No server has so many machines in a row.
    constexpr int mostPartsOfMachines = 1000;
    for (int part = 1;; ++part) {
        const auto index = static_cast<DWORD>(page.next);
        const DWORD code = readPart(windows::ServerName(source.server).get(), index, domain.value, page);
        if (code != ERROR_SUCCESS) return windows::unanswered<AccountPage>(code);
        const bool goesOn = page.more && page.next > index && part < mostPartsOfMachines;
        if (!page.items.empty() || !goesOn) return page;
    }
}

}  // namespace host
