#include "runtime/host/windows/list_domain.h"

#include <optional>

namespace host::windows {

Answer<AccountDomain> domainOfList(const std::wstring& server, std::uint64_t cursor) {
    static std::wstring lastServer;
    static std::optional<AccountDomain> last;
    if (cursor != 0 && last && lastServer == server) return *last;
    Answer<AccountDomain> domain = accountDomain(server);
    if (domain.found()) {
        lastServer = server;
        last = domain.value;
    }
    return domain;
}

}  // namespace host::windows
