#pragma once

/// The quotas as they apply to each account.

#include "runtime/admin/QVQuota.h"
#include "runtime/base/CString.h"
#include "runtime/util/QVSid.h"

class QVQuotaConfiguration {
public:
    /// How the quota of an account was found.
    enum QuotaType {
        noRule = 0,        ///< no entry of the file applies
        userEntry = 1,     ///< the account's own entry
        groupEntry = 2,    ///< the largest of the entries of the groups to which it belongs
        defaultEntry = 3,  ///< the default quota
    };

    /// Reads the quota file. Throws `QVErrno` when it cannot be read or holds a mistake.
    static void mf_createInstance();

    /// Forgets the quotas; harmless when there are none. May throw `QVErrno`; they are forgotten all the
    /// same.
    static void mf_deleteInstance();

    /// The quota of an account of this computer or of its domain: its own entry, else the largest of the
    /// entries of its groups, else the default, else none. `quota` is never null and stays valid until
    /// `mf_deleteInstance`. `explanation` is set for `groupEntry` only and names the groups that decided:
    /// "group CORP\Staff". Throws `QVErrno` when the quotas were not read, `account` is null, or it cannot be
    /// determined which entry applies, as when the account's groups cannot be asked for: a quota that may be
    /// wrong is never returned. While the file has entries of groups, `QVDomainController` must be started.
    static QuotaType mf_getQuota(const SID* account, QVQuota*& quota, CString& explanation);

    /// "no quota rule", "user entry", "group entry", "default entry"; `detail` is 1, the one form that there
    /// is.
    static const CString mf_getQuotaTypeString(QuotaType type, int detail);
};
