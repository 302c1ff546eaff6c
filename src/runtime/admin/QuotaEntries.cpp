#include "runtime/admin/QuotaEntries.h"

#include "runtime/base/QVErrno.h"

namespace {

/// The name without domain, in small letters.
std::wstring bareName(const CString& fullName) {
    CString lower = fullName;
    lower.MakeLower();
    const std::wstring& units = lower.units();
    const std::size_t separator = units.find(L'\\');
    return separator == std::wstring::npos ? units.substr(0, units.find(L'@')) : units.substr(separator + 1);
}

/// Whether the name can only mean the one account of that full name: a DNS name of a domain is not its name
/// in full names.
bool isFullName(const CString& name) {
    const std::size_t separator = name.units().find(L'\\');
    return separator != std::wstring::npos && name.units().find(L'.') >= separator;
}

}  // namespace

QuotaEntries::QuotaEntries(const QVArray<QVSidQuota*>& entries) : m_entries(entries) {
    for (int i = 0; i < entries.GetSize(); ++i) {
        const QVSidQuota& entry = *entries[i];
        m_index.add(entry.account(), i);
        if (entry.account().sid().empty()) addName(entry);
    }
}

void QuotaEntries::addName(const QVSidQuota& entry) {
    m_needNames = true;
    if (entry.asked()) return;
    m_undecided = true;
    const CString& name = entry.account().fullName();
    if (!isFullName(name)) m_undecidedNames.insert(bareName(name));
}

int QuotaEntries::lookUp(const QVSid& account) const {
    if (const int* index = m_index.find(account)) return *index;
    const bool mayBeMeant =
        !m_undecidedNames.empty() && m_undecidedNames.count(bareName(account.fullName())) != 0;
    return mayBeMeant ? undecided : none;
}

int QuotaEntries::find(const QVSid& account) const {
    const int index = lookUp(account);
    if (index != undecided) return index;
    raise(QVErrno::_E_::Unspecific,
          formatted(L"whether the quota file means '%s' cannot be determined", account.fullName()));
}
