#include "runtime/util/DomainSession.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "runtime/base/QVErrno.h"
#include "runtime/host/host.h"

namespace {

struct Instance {
    std::optional<host::Membership> membership;
    std::optional<host::Answer<host::AccountSource>> source;
    bool rediscovered = false;
    std::shared_ptr<const ListedAccounts> listedUsers;
};

std::optional<Instance> instance;

Instance& requireInstance() {
    if (!instance) raise(QVErrno::_E_::Unspecific, L"the domain controller instance was not started");
    return *instance;
}

host::Answer<host::AccountSource> locate(bool again) {
    const host::Membership& membership = DomainSession::membership();
    if (!membership.joined)
        return host::Answer<host::AccountSource>::failed(0, L"this computer is not joined to a domain");
    if (membership.domainController) return host::AccountSource{};  // this computer itself
    const auto name = host::domainController(membership, false, again);
    if (!name.found()) return host::Answer<host::AccountSource>::without(name);
    return host::AccountSource{name.value};
}

/// Whether a code says that the other computer was not reached, does not go on, or is not the one that it was
/// taken for. Any other code is an answer of its.
bool saysLost(std::uint32_t code) {
    static constexpr std::uint32_t codes[] = {
        51,   53,   54,   55,   59,   64,   67,          // network name, path, adapter, connection
        71,   121,  1115, 1130, 1460,                    // too busy, timed out, being shut down
        1225, 1231, 1232, 1233, 1234, 1236, 1256, 1311,  // connection refused or aborted, host out of reach
        1355, 1396, 1908,                                // no such domain, wrong target, no controller
        1715, 1717, 1722, 1723, 1726, 1727, 1753, 1818,  // remote procedure calls
        2453,                                            // no controller was found
    };
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

void DomainSession::requireStarted() {
    requireInstance();
}

const host::Membership& DomainSession::membership() {
    Instance& current = requireInstance();
    if (!current.membership) {
        const auto answer = host::membership();
        if (!answer.found()) raise(answer.failure, L"the membership of a domain cannot be determined");
        current.membership = answer.value;
    }
    return *current.membership;
}

void DomainSession::start() {
    instance.emplace();
}

void DomainSession::stop() noexcept {
    instance.reset();
}

bool DomainSession::isStarted() noexcept {
    return instance.has_value();
}

std::shared_ptr<const ListedAccounts> DomainSession::listedUsers() {
    return instance ? instance->listedUsers : nullptr;
}

void DomainSession::usersListed(ListedAccounts&& users) {
    requireInstance().listedUsers = std::make_shared<const ListedAccounts>(std::move(users));
}

host::Answer<host::AccountSource> DomainSession::accountSource() {
    Instance& current = requireInstance();
    if (!current.source) current.source = locate(current.rediscovered);
    return *current.source;
}

bool DomainSession::isLost(const host::AccountSource& source, const host::Failure& failure) {
    return !source.server.empty() && saysLost(failure.code);
}

bool DomainSession::lookForAnother(const host::Failure& lost) {
    Instance& current = requireInstance();
    if (current.rediscovered) {
        current.source = host::Answer<host::AccountSource>::failed(lost.code, lost.text);
        return false;
    }
    current.rediscovered = true;
    current.source.reset();
    return true;
}
