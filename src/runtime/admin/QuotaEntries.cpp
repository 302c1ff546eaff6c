#include "runtime/admin/QuotaEntries.h"

#include "runtime/base/QVErrno.h"
#include "runtime/host/letter_case.h"

namespace {

/// The name without domain, in small letters.
std::wstring bareName(const host::Account& account) {
    const bool isPrincipal = account.domain.empty();
    return host::folded(isPrincipal ? account.name.substr(0, account.name.find(L'@')) : account.name);
}

/// Whether the name can only mean the one account of that full name: a DNS name of a domain is not its name
/// in full names.
bool isFullName(const host::Account& account) {
    return !account.domain.empty() && account.domain.find(L'.') == std::wstring::npos;
}

}  // namespace

QuotaEntries::QuotaEntries(const QVArray<QVSidQuota*>& entries) : m_entries(entries) {
    for (int i = 0; i < entries.GetSize(); ++i) {
        const QVSidQuota& entry = *entries[i];
        m_index.add(entry.account(), i);
        if (entry.account().sid.empty()) addName(entry);
    }
}

void QuotaEntries::addName(const QVSidQuota& entry) {
    m_needNames = true;
    if (entry.asked()) return;
    m_undecided = true;
    if (!isFullName(entry.account())) m_undecidedNames.insert(bareName(entry.account()));
}

int QuotaEntries::lookUp(const host::Account& account) const {
    if (const int* index = m_index.find(account)) return *index;
    const bool mayBeMeant = !m_undecidedNames.empty() && m_undecidedNames.count(bareName(account)) != 0;
    return mayBeMeant ? undecided : none;
}

int QuotaEntries::find(const host::Account& account) const {
    const int index = lookUp(account);
    if (index != undecided) return index;
    raise(QVErrno::_E_::Unspecific,
          formatted(L"whether the quota file means '%s' cannot be determined", QVSid(account).fullName()));
}
