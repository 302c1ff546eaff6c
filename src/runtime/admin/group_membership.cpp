#include "runtime/admin/group_membership.h"

#include <algorithm>
#include <iterator>

#include "runtime/base/QVErrno.h"
#include "runtime/host/host.h"
#include "runtime/host/letter_case.h"
#include "runtime/util/DomainSession.h"
#include "runtime/util/ListedAccounts.h"

namespace {

using Accounts = std::vector<host::Account>;

/// Unlike elsewhere, "not there" is no answer: the account is there.
void append(const host::Answer<Accounts>& answer, const wchar_t* which, const host::Account& account,
            Accounts& groups) {
    if (!answer.found()) {
        const wchar_t* const why = answer.isMissing() ? L": no such user is known" : L"";
        raise(answer.failure, formatted(L"the %s groups of '%s\\%s' cannot be determined%s", which,
                                        account.domain.c_str(), account.name.c_str(), why));
    }
    groups.insert(groups.end(), answer.value.begin(), answer.value.end());
}

}  // namespace

/// A controller takes the bare name of an account of any other place for one of its own.
bool isOfDomain(const host::Account& account) {
    const host::Membership& membership = DomainSession::membership();
    if (!membership.joined) return false;
    const bool hasDomainName = host::equalIgnoringCase(account.domain, membership.domainName);
    if (hasDomainName && membership.domainController) return true;  // it has no other accounts
    const auto own = host::accountDomain();
    if (!own.found() && !hasDomainName) raise(own.failure, L"the name of this computer cannot be determined");
    // A domain may have the name of this computer: then the SID tells.
    const bool hasOwnName = own.found() && host::equalIgnoringCase(account.domain, own.value.name);
    if (hasOwnName && (!hasDomainName || own.value.has(account.sid))) return false;
    if (hasDomainName) return true;
    raise(QVErrno::_E_::Unspecific,
          formatted(L"the groups of '%s\\%s' cannot be determined: it is no account of this "
                    L"computer or its domain",
                    account.domain.c_str(), account.name.c_str()));
}

/// S-1-5-32-...
bool isBuiltIn(const host::Account& group) {
    constexpr std::array<std::uint8_t, 6> windowsAuthority{0, 0, 0, 0, 0, 5};
    constexpr std::uint32_t builtInDomain = 32;
    const host::Sid& sid = group.sid;
    return !sid.empty() && sid.authority == windowsAuthority && sid.subAuthorities[0] == builtInDomain;
}

Accounts groupsOf(const host::Account& account, bool ofDomain) {
    Accounts groups;
    append(host::localGroupsOf({}, account), L"local", account, groups);
    if (!ofDomain) return groups;

    Accounts domainGroups;
    append(DomainSession::ask([&account](const host::AccountSource& source) {
               return host::localGroupsOf(source, account);
           }),
           L"domain-local", account, domainGroups);
    append(DomainSession::ask([&account](const host::AccountSource& source) {
               return host::globalGroupsOf(source, account);
           }),
           L"global", account, domainGroups);
    std::remove_copy_if(domainGroups.begin(), domainGroups.end(), std::back_inserter(groups), isBuiltIn);
    return groups;
}
