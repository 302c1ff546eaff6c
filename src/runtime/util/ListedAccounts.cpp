#include "runtime/util/ListedAccounts.h"

#include <algorithm>
#include <tuple>

#include "runtime/host/letter_case.h"

namespace {

bool hasLastPart(const host::Sid& sid) {
    return !sid.empty() && sid.subAuthorityCount <= host::Sid::maximumSubAuthorities;
}

/// Splits a SID into what its whole domain has in common and its last part.
std::pair<host::Sid, std::uint32_t> split(host::Sid sid) {
    if (!hasLastPart(sid)) return {{}, 0};
    std::uint32_t& last = sid.subAuthorities[--sid.subAuthorityCount];
    return {sid, std::exchange(last, 0)};
}

std::uint64_t hashOf(const std::wstring& domain, const std::wstring& name) {
    return host::hashIgnoringCase(name, host::hashIgnoringCase(L"\\", host::hashIgnoringCase(domain)));
}

}  // namespace

std::uint32_t ListedAccounts::originOf(const host::Account& account) {
    const host::Sid sid = split(account.sid).first;
    const bool hasSid = hasLastPart(account.sid);
    // The accounts of one domain stand together.
    for (std::size_t i = m_origins.size(); i-- > 0;) {
        const Origin& origin = m_origins[i];
        if (origin.hasSid == hasSid && origin.sid == sid && origin.domain == account.domain) {
            return static_cast<std::uint32_t>(i);
        }
    }
    m_origins.push_back({account.domain, sid, hasSid});
    return static_cast<std::uint32_t>(m_origins.size() - 1);
}

void ListedAccounts::add(const host::Account& account) {
    m_entries.push_back({m_names.size(), originOf(account), split(account.sid).second});
    m_names += account.name;
    m_indexed = false;
}

std::uint64_t ListedAccounts::nameEnd(std::size_t index) const {
    return index + 1 < m_entries.size() ? m_entries[index + 1].nameAt : m_names.size();
}

host::Account ListedAccounts::at(std::size_t index) const {
    const Entry& entry = m_entries.at(index);
    const Origin& origin = m_origins[entry.origin];
    host::Account account{origin.domain, m_names.substr(entry.nameAt, nameEnd(index) - entry.nameAt),
                          origin.sid};
    if (origin.hasSid) account.sid.subAuthorities[account.sid.subAuthorityCount++] = entry.rid;
    return account;
}

void ListedAccounts::buildIndexes() const {
    if (m_indexed) return;
    m_bySid.clear();
    m_byName.clear();
    m_byName.reserve(m_entries.size());
    for (std::uint32_t i = 0; i < m_entries.size(); ++i) {
        const host::Account account = at(i);
        if (m_origins[m_entries[i].origin].hasSid) m_bySid.push_back(i);
        if (!account.name.empty()) m_byName.emplace_back(hashOf(account.domain, account.name), i);
    }
    std::sort(m_bySid.begin(), m_bySid.end(), [this](std::uint32_t left, std::uint32_t right) {
        const Entry& one = m_entries[left];
        const Entry& other = m_entries[right];
        return std::tie(one.origin, one.rid, left) < std::tie(other.origin, other.rid, right);
    });
    std::sort(m_byName.begin(), m_byName.end());
    m_indexed = true;
}

std::size_t ListedAccounts::find(const host::Sid& sid) const {
    if (!hasLastPart(sid)) return none;
    buildIndexes();
    const auto [domain, rid] = split(sid);
    std::size_t first = none;
    for (std::uint32_t origin = 0; origin < m_origins.size(); ++origin) {
        if (!m_origins[origin].hasSid || !(m_origins[origin].sid == domain)) continue;
        const auto found =
            std::lower_bound(m_bySid.begin(), m_bySid.end(), std::pair(origin, rid),
                             [this](std::uint32_t index, const std::pair<std::uint32_t, std::uint32_t>& key) {
                                 const Entry& entry = m_entries[index];
                                 return std::pair(entry.origin, entry.rid) < key;
                             });
        if (found == m_bySid.end()) continue;
        const Entry& entry = m_entries[*found];
        if (entry.origin == origin && entry.rid == rid) first = std::min<std::size_t>(first, *found);
    }
    return first;
}

template <class Accepts>
std::size_t ListedAccounts::findNamed(const std::wstring& domain, const std::wstring& name,
                                      Accepts accepts) const {
    if (name.empty()) return none;
    buildIndexes();
    const std::uint64_t hash = hashOf(domain, name);
    auto found = std::lower_bound(m_byName.begin(), m_byName.end(), std::pair(hash, std::uint32_t{0}));
    for (; found != m_byName.end() && found->first == hash; ++found) {
        const host::Account account = at(found->second);
        if (host::equalIgnoringCase(account.domain, domain) && host::equalIgnoringCase(account.name, name) &&
            accepts(account))
            return found->second;
    }
    return none;
}

std::size_t ListedAccounts::find(const std::wstring& domain, const std::wstring& name) const {
    return findNamed(domain, name, [](const host::Account&) { return true; });
}

std::size_t ListedAccounts::find(const host::Account& account) const {
    const std::size_t bySid = find(account.sid);
    if (bySid != none) return bySid;
    return findNamed(account.domain, account.name,
                     [&account](const host::Account& listed) { return isSameAccount(listed, account); });
}
