#include "runtime/admin/QVSidQuota.h"

#include "runtime/base/operation.h"

const QVSid& QVSidQuota::mf_getSid() const {
    static const QVSid none{host::Account{}};
    if (operation::answersZero(L"QVSidQuota::mf_getSid", [this] { return m_sid.fullName(); })) return none;
    return m_sid;
}

const QVQuota& QVSidQuota::mf_getQuota() const {
    static const QVQuota none;
    if (operation::answersZero(L"QVSidQuota::mf_getQuota", [this] { return m_sid.fullName(); })) return none;
    return m_quota;
}
