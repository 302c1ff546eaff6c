#pragma once

/// The Windows domain of this computer and its controller. Started and stopped by `QVMain`.

#include <memory>
#include <vector>

#include "runtime/base/CString.h"
#include "runtime/host/facts.h"
#include "runtime/util/ListedAccounts.h"

class QVDomainController {
public:
    /// Non-zero when this computer is a member of a domain (a controller is one). Asked locally and once. Throws
    /// `QVErrno` when the system does not tell, or before the instance was started.
    static int mf_isJoined();

    /// The domain's name in its NetBIOS form; valid until the instance is stopped. Throws as above.
    static const CString& mf_getDomainName();

    /// The computer name of the primary domain controller, without leading "\\". Throws `QVErrno` when none is found.
    static const CString mf_getPDCName();

    static void start();
    static void stop() noexcept;

    /// What is known of the domain, for the runtime's own needs: no operation of the program. Throws as `mf_isJoined`.
    static const host::Membership& membership();

    static bool isStarted() noexcept;

    /// The accounts of the last list of users that was read to its end while the instance lives; null before.
    static std::shared_ptr<const ListedAccounts> listedUsers();
    static void usersListed(ListedAccounts&& users);

    /// The built-in and domain-local groups to which an account belongs, directly or through other groups.
    /// Asked for many accounts of the last list, it costs no question for each.
    static host::Answer<std::vector<host::Account>> domainLocalGroupsOf(const host::Account& account);

    /// Where the domain's accounts can be asked for: a controller of the domain, located at first use; this computer
    /// where it is one itself. `failed` or `refused` when there is none.
    static host::Answer<host::AccountSource> accountSource();

    /// Asks the domain: `question(source)` gives an `Answer`. When the controller proves lost, it is put once more, to
    /// another one. That is done once while the instance lives: when that one is lost too, this and all later
    /// questions end as it did, and nobody waits for it again.
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
