#pragma once

/// What a report knows of the domain while it runs: membership, controller, the accounts last listed. One at
/// a time, started and stopped by `QVDomainController`.

#include <memory>

#include "runtime/host/facts.h"
#include "runtime/util/ListedAccounts.h"

class DomainSession {
public:
    static void start();
    static void stop() noexcept;
    static bool isStarted() noexcept;
    /// Throws `QVErrno` before the start, as do all below.
    static void requireStarted();

    /// Whether and where this computer is joined; asked locally and once. Throws `QVErrno` when the system
    /// does not tell.
    static const host::Membership& membership();

    /// The accounts of the last list of users that was read to its end while the instance lives; null before.
    static std::shared_ptr<const ListedAccounts> listedUsers();
    static void usersListed(ListedAccounts&& users);

    /// Where the domain's accounts can be asked for: a controller of the domain, located at first use; this
    /// computer where it is one itself. `failed` or `refused` when there is none.
    static host::Answer<host::AccountSource> accountSource();

    /// Asks the domain: `question(source)` gives an `Answer`. When the controller proves lost, it is put once
    /// more, to another one. That is done once while the instance lives: when that one is lost too, this and
    /// all later questions end as it did, and nobody waits for it again.
    template <class Ask>
    static auto ask(Ask question) -> decltype(question(host::AccountSource{})) {
        using Reply = decltype(question(host::AccountSource{}));
        for (;;) {
            const auto source = accountSource();
            if (!source.found()) return Reply::without(source);
            Reply reply = question(source.value);
            const bool lost = reply.status == host::Status::failed && isLost(source.value, reply.failure);
            if (!lost || !lookForAnother(reply.failure)) return reply;
        }
    }

private:
    static bool isLost(const host::AccountSource& source, const host::Failure& failure);

    /// Drops the controller; true when another one is located at the next use.
    static bool lookForAnother(const host::Failure& lost);
};
