#pragma once

/// Accounts that have the same identifier on every machine or in every domain.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/host/facts.h"

namespace description {

/// The relative identifier of a group of BUILTIN ("Administrators": 544).
std::optional<std::uint32_t> builtinGroup(std::wstring_view name);

/// That of a user or group below the machine or the domain ("Administrator": 500, "Domain Users": 513).
std::optional<std::uint32_t> fixedAccount(std::wstring_view name);

/// S-1-5-32-RID.
host::Sid builtinSid(std::uint32_t rid);

/// S-1-5-21-A-B-C for a computer or a domain, made up from its name: the same at every start.
host::Sid madeUpDomainSid(std::wstring_view name);

host::Sid withRid(host::Sid domain, std::uint32_t rid);

/// "Everyone", "NT AUTHORITY\SYSTEM" and the like: by SID, by name with or without domain (ignoring case).
std::optional<host::Account> worldAccount(const host::Sid& sid);
std::optional<host::Account> worldAccount(std::wstring_view name);

}  // namespace description
