#include "runtime/util/QVSid.h"

#include <limits>

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"

namespace {

constexpr std::uint32_t errorNoneMapped = 1332;

CString fullNameOf(const host::Account& account) {
    if (account.name.empty()) return toText(account.sid);
    return CString(account.domain.empty() ? account.name : account.domain + L"\\" + account.name);
}

/// The identifier authority: below 2^32 in decimal, else in hexadecimal, as Windows writes it.
CString authorityText(const host::Sid& sid) {
    unsigned long long value = 0;
    for (const std::uint8_t byte : sid.authority)
        value = value << 8 | byte;
    return value <= std::numeric_limits<std::uint32_t>::max() ? formatted(L"%u", value)
                                                              : formatted(L"0x%12.12X", value);
}

/// Reads a decimal number of at most `most`, behind a '-'. Leaves `at` behind it; false when there is none.
bool readPart(const wchar_t*& at, std::uint64_t most, std::uint64_t& number) {
    if (*at != L'-' || at[1] < L'0' || at[1] > L'9') return false;
    number = 0;
    for (++at; *at >= L'0' && *at <= L'9'; ++at) {
        number = number * 10 + static_cast<std::uint64_t>(*at - L'0');
        if (number > most) return false;
    }
    return true;
}

}  // namespace

CString toText(const host::Sid& sid) {
    CString text = formatted(L"S-%u-", static_cast<unsigned int>(sid.revision)) + authorityText(sid);
    for (unsigned i = 0; i < sid.subAuthorityCount; ++i)
        text += formatted(L"-%u", sid.subAuthorities[i]);
    return text;
}

host::Sid sidFromText(const CString& text) {
    host::Sid sid;
    const wchar_t* at = text;
    std::uint64_t number = 0;
    if ((*at != L'S' && *at != L's') || !readPart(++at, 255, number)) return {};
    sid.revision = static_cast<std::uint8_t>(number);
    if (!readPart(at, std::numeric_limits<std::uint32_t>::max(), number)) return {};
    for (std::size_t i = 0; i < 4; ++i)
        sid.authority[5 - i] = static_cast<std::uint8_t>(number >> 8 * i);
    while (*at != L'\0') {
        if (sid.subAuthorityCount == host::Sid::maximumSubAuthorities) return {};
        if (!readPart(at, std::numeric_limits<std::uint32_t>::max(), number)) return {};
        sid.subAuthorities[sid.subAuthorityCount++] = static_cast<std::uint32_t>(number);
    }
    return sid;
}

host::Account toAccount(const QVSid& account) {
    const std::wstring& fullName = account.fullName().units();
    const std::size_t separator = fullName.find(L'\\');
    if (separator == std::wstring::npos) return {L"", fullName, account.sid()};
    return {fullName.substr(0, separator), fullName.substr(separator + 1), account.sid()};
}

QVSid::QVSid(const host::Account& account) : m_sid(account.sid), m_fullName(fullNameOf(account)) {}

const SID* QVSid::mf_getSid() const {
    if (operation::answersZero(L"QVSid::mf_getSid", m_fullName)) return nullptr;
    if (m_sid.empty())
        raise(QVErrno::_E_::System, formatted(L"the SID of '%s' is not known", m_fullName), errorNoneMapped);
    return reinterpret_cast<const SID*>(&m_sid);
}

const CString QVSid::mf_getSidString() const {
    if (operation::answersZero(L"QVSid::mf_getSidString", m_fullName)) return {};
    if (m_sid.empty())
        raise(QVErrno::_E_::System, formatted(L"the SID of '%s' is not known", m_fullName), errorNoneMapped);
    return toText(m_sid);
}

const CString QVSid::mf_getFullName() const {
    if (operation::answersZero(L"QVSid::mf_getFullName", m_fullName)) return {};
    return m_fullName;
}
