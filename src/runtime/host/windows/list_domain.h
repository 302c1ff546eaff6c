#pragma once

/// The domain of the accounts of a list.

#include <cstdint>
#include <string>

#include "runtime/host/windows/local_security.h"

namespace host::windows {

/// The account domain of a list of `server` that is being read: asked at its beginning, not for every page.
Answer<AccountDomain> domainOfList(const std::wstring& server, std::uint64_t cursor);

}  // namespace host::windows
