#pragma once

#include "runtime/admin/QVQuota.h"
#include "runtime/util/QVSid.h"

/// An account and its quota: one entry of the quota file.
class QVSidQuota {
public:
    /// `asked`: whether the system answered when the entry's account was looked up, be it that there is none.
    QVSidQuota(const host::Account& account, const QVQuota& quota, bool asked)
        : m_sid(account), m_quota(quota), m_asked(asked) {}

    /// Account and quota; owned by this object. May throw `QVErrno`.
    const QVSid& mf_getSid() const;
    const QVQuota& mf_getQuota() const;

    /// The same outside of any operation.
    const QVSid& sid() const { return m_sid; }
    const host::Account& account() const { return m_sid.account(); }
    QVQuota& quota() { return m_quota; }
    bool asked() const { return m_asked; }

private:
    QVSid m_sid;
    QVQuota m_quota;
    bool m_asked;
};
