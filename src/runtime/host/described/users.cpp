#include "runtime/host/described/account_source.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

Answer<AccountPage> users(const AccountSource& source, std::uint64_t cursor) {
    const Answer<description::Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    const description::Directory& directory = description::directory();
    const description::Machine& machine = description::machine();
    const description::ListCause& cause =
        (scope.value == description::Scope::computer ? machine.users : machine.domainUsers).cause;
    return described::pageOf(cursor, directory.userCount(scope.value), cause,
                             [&](std::uint64_t index) { return directory.user(scope.value, index); });
}

}  // namespace host
