#include "runtime/host/described/account_source.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

/// Only a controller knows the accounts of the domain without asking another computer.
Answer<Account> accountOr(std::optional<Account> found, bool isOfDomain) {
    described::countIfRemote(isOfDomain);
    const description::DomainDescription& domain = described::domain();
    if (isOfDomain && domain.unreachable.any && !domain.isController)
        return description::answerOf<Account>(domain.unreachable);
    return found ? Answer<Account>(std::move(*found)) : Answer<Account>::missing();
}

}  // namespace

Answer<AccountDomain> accountDomain() {
    const description::Cause& cause = description::machine().system.systemCause;
    if (cause.any) return description::answerOf<AccountDomain>(cause);
    const description::Scope scope = described::scopeHere();
    const description::Directory& directory = description::directory();
    return AccountDomain{std::wstring(directory.label(scope)), directory.domainSid(scope)};
}

Answer<Account> accountOfSid(const Sid& sid) {
    return accountOr(description::directory().accountOfSid(sid), description::directory().isOfDomain(sid));
}

Answer<Account> accountOfName(const std::wstring& fullName) {
    const std::size_t separator = fullName.find(L'\\');
    const bool isOfDomain =
        separator != std::wstring::npos &&
        description::directory().isDomainName(std::wstring_view(fullName).substr(0, separator));
    return accountOr(description::directory().accountOfName(fullName), isOfDomain);
}

}  // namespace host
