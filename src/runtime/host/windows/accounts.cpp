#include "runtime/host/host.h"
#include "runtime/host/windows/account_server.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/sids.h"

namespace host {

namespace {

/// The names of accounts and of domains are shorter; the system refuses to fill less than they need.
constexpr DWORD usualName = 257;

bool isAccount(SID_NAME_USE use) {
    return use != SidTypeUnknown && use != SidTypeInvalid && use != SidTypeDeletedAccount;
}

Answer<Account> without(DWORD code) {
    return code == ERROR_NONE_MAPPED ? Answer<Account>::missing() : windows::unanswered<Account>(code);
}

/// A bare name belongs to this computer; asked for as it stands, every trusted domain would be searched for
/// it.
Answer<Account> accountHere(const std::wstring& name) {
    return windows::accountServer({}).group(name);
}

}  // namespace

Answer<AccountDomain> accountDomain() {
    return windows::accountServer({}).domain();
}

Answer<Account> accountOfSid(const Sid& sid) {
    Account account;
    account.sid = sid;
    Sid asked = sid;
    SID_NAME_USE use = SidTypeUnknown;
    std::vector<wchar_t> name(usualName), domain(usualName);
    const windows::Filled filled = windows::fill(name, [&](wchar_t* units, DWORD& size) -> DWORD {
        auto domainSize = static_cast<DWORD>(domain.size());
        const bool known = LookupAccountSidW(nullptr, windows::systemForm(asked), units, &size, domain.data(),
                                             &domainSize, &use) != 0;
        const DWORD code = known ? ERROR_SUCCESS : GetLastError();
        if (domainSize > domain.size()) domain.assign(domainSize, L'\0');
        return code;
    });
    if (filled.code != ERROR_SUCCESS) return without(filled.code);
    if (!isAccount(use)) return {};
    account.name = name.data();
    account.domain = domain.data();
    return account;
}

Answer<Account> accountOfName(const std::wstring& fullName) {
    const std::size_t separator = fullName.find(L'\\');
    const bool principal = fullName.find(L'@') != std::wstring::npos;
    if (separator == std::wstring::npos && !principal) return accountHere(fullName);

    Account account;
    DWORD sidSize = sizeof account.sid;
    SID_NAME_USE use = SidTypeUnknown;
    std::vector<wchar_t> domain(usualName);
    const windows::Filled filled = windows::fill(domain, [&](wchar_t* units, DWORD& size) -> DWORD {
        sidSize = sizeof account.sid;
        const bool known = LookupAccountNameW(nullptr, fullName.c_str(), windows::systemForm(account.sid),
                                              &sidSize, units, &size, &use) != 0;
        return known ? ERROR_SUCCESS : GetLastError();
    });
    if (filled.code != ERROR_SUCCESS) return without(filled.code);
    if (!isAccount(use)) return {};
    // The name of a principal is not the account's.
    if (separator == std::wstring::npos) return accountOfSid(account.sid);
    account.domain = domain.data();
    account.name = fullName.substr(separator + 1);
    return account;
}

}  // namespace host
