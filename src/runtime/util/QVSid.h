#pragma once

/// An account's identity.

#include "runtime/base/CString.h"
#include "runtime/host/facts.h"

struct _SID;
using SID = _SID;

/// Binary SID, SID string and full name of an account.
class QVSid {
public:
    explicit QVSid(const host::Account& account);
    virtual ~QVSid() = default;
    QVSid(const QVSid&) = default;
    QVSid& operator=(const QVSid&) = default;

    /// The binary SID; owned by this object. Throws `QVErrno` when the account's SID is not known.
    const SID* mf_getSid() const;

    /// "S-1-5-21-...". Throws as above.
    const CString mf_getSidString() const;

    /// "DOMAIN\name"; the SID string of an account that cannot be resolved. May throw `QVErrno`.
    const CString mf_getFullName() const;

    const host::Sid& sid() const { return m_sid; }
    /// The full name, outside of any operation.
    const CString& fullName() const { return m_fullName; }

private:
    host::Sid m_sid;
    CString m_fullName;
};

/// The SID as text.
CString toText(const host::Sid& sid);

/// The SID that a text names; empty when it names none.
host::Sid sidFromText(const CString& text);

/// The account's domain, name and SID as the host wants them.
host::Account toAccount(const QVSid& account);
