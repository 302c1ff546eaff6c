#pragma once

/// An account's identity.

#include "runtime/base/CString.h"
#include "runtime/host/facts.h"

struct _SID;
using SID = _SID;

/// Binary SID, SID string and full name of an account.
class QVSid {
public:
    explicit QVSid(host::Account account) : m_account(std::move(account)) {}
    virtual ~QVSid() = default;
    QVSid(const QVSid&) = default;
    QVSid& operator=(const QVSid&) = default;

    /// The binary SID; owned by this object. Throws `QVErrno` when the account's SID is not known.
    const SID* mf_getSid() const;

    /// "S-1-5-21-...". Throws as above.
    const CString mf_getSidString() const;

    /// "DOMAIN\name"; the SID string of an account that cannot be resolved. May throw `QVErrno`.
    const CString mf_getFullName() const;

    /// Account and full name, outside of any operation.
    const host::Account& account() const { return m_account; }
    CString fullName() const;

private:
    const host::Sid& knownSid() const;

    host::Account m_account;
};
