#pragma once

/// What the local security authority of a machine knows of names.

#include <string>
#include <vector>

#include "runtime/host/facts.h"

namespace host::windows {

/// The account domain of `server`. Windows: LsaQueryInformationPolicy here, NetUserModalsGet at a server.
Answer<AccountDomain> accountDomain(const std::wstring& server);

/// The name under which `server` knows its built-in groups, in its own language.
std::wstring builtinDomainName(const std::wstring& server);

/// The accounts of `fullNames` ("DOMAIN\name"), one for each; one that is not known has no SID. All names go
/// in one question, so there must be no more than `namesAtOnce`. Windows: LsaLookupNames2.
Answer<std::vector<Account>> accountsOfNames(const std::wstring& server,
                                             const std::vector<std::wstring>& fullNames);

inline constexpr std::size_t namesAtOnce = 1000;

}  // namespace host::windows
