#include "runtime/util/QVSid.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/sid_text.h"

CString QVSid::fullName() const {
    const auto& [domain, name, sid] = m_account;
    if (name.empty()) return CString(host::sidText(sid));
    return CString(domain.empty() ? name : domain + L"\\" + name);
}

const host::Sid& QVSid::knownSid() const {
    constexpr std::uint32_t errorNoneMapped = 1332;
    if (m_account.sid.empty())
        raise(QVErrno::_E_::System, formatted(L"the SID of '%s' is not known", fullName()), errorNoneMapped);
    return m_account.sid;
}

const SID* QVSid::mf_getSid() const {
    if (operation::answersZero(L"QVSid::mf_getSid", [this] { return fullName(); })) return nullptr;
    return reinterpret_cast<const SID*>(&knownSid());
}

const CString QVSid::mf_getSidString() const {
    if (operation::answersZero(L"QVSid::mf_getSidString", [this] { return fullName(); })) return {};
    return CString(host::sidText(knownSid()));
}

const CString QVSid::mf_getFullName() const {
    if (operation::answersZero(L"QVSid::mf_getFullName", [this] { return fullName(); })) return {};
    return fullName();
}
