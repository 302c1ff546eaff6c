#pragma once

/// The Windows domain of this computer and its controller. Started and stopped by `QVMain`.

#include <vector>

#include "runtime/base/CString.h"
#include "runtime/host/facts.h"

class QVDomainController {
public:
    /// Non-zero when this computer is a member of a domain (a controller is one). Asked locally and once.
    /// Throws `QVErrno` when the system does not tell, or before the instance was started.
    static int mf_isJoined();

    /// The domain's name in its NetBIOS form; valid until the instance is stopped. Throws as above.
    static const CString& mf_getDomainName();

    /// The computer name of the primary domain controller, without leading "\\". Throws `QVErrno` when none
    /// is found.
    static const CString mf_getPDCName();

    static void start();
    static void stop() noexcept;

    /// The built-in and domain-local groups to which an account belongs, directly or through other groups.
    /// Asked for many accounts of the last list, it costs no question for each.
    static host::Answer<std::vector<host::Account>> domainLocalGroupsOf(const host::Account& account);
};
