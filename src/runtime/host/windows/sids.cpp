#include "runtime/host/windows/sids.h"

#include <cstring>
#include <type_traits>

namespace host::windows {

static_assert(std::is_standard_layout_v<Sid> && sizeof(Sid) == SECURITY_MAX_SID_SIZE);

Sid sidFrom(PSID sid) {
    Sid copy;
    if (sid == nullptr || !IsValidSid(sid)) return copy;
    std::memcpy(static_cast<void*>(&copy), sid, GetLengthSid(sid));
    return copy;
}

Sid accountIn(const Sid& domain, DWORD rid) {
    if (domain.empty() || domain.subAuthorityCount >= Sid::maximumSubAuthorities) return {};
    Sid account = domain;
    account.subAuthorities[account.subAuthorityCount++] = rid;
    return account;
}

PSID systemForm(Sid& sid) {
    return &sid;
}

}  // namespace host::windows
