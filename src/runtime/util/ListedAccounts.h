#pragma once

/// The accounts of a list, kept compactly: a domain can hold a million of them.

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "runtime/host/facts.h"

class ListedAccounts {
public:
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    void add(const host::Account& account);

    std::size_t size() const { return m_entries.size(); }
    /// The account at `index`, counted from 0 in the order of the list.
    host::Account at(std::size_t index) const;

    /// The index of the first account with this SID, or with this domain and name in capital or small
    /// letters; `none` where there is none, and for an empty SID or name.
    std::size_t find(const host::Sid& sid) const;
    std::size_t find(const std::wstring& domain, const std::wstring& name) const;
    /// The first account that is the same (`host::isSameAccount`).
    std::size_t find(const host::Account& account) const;

private:
    /// What many accounts have in common.
    struct Origin {
        std::wstring domain;
        host::Sid sid;  ///< without the last part; of accounts without SID, empty
        bool hasSid;
    };
    struct Entry {
        std::uint64_t nameAt;
        std::uint32_t origin;
        std::uint32_t rid;
    };

    template <class Accepts>
    std::size_t findNamed(const std::wstring& domain, const std::wstring& name, Accepts accepts) const;
    std::uint32_t originOf(const host::Account& account);
    void buildIndexes() const;
    std::uint64_t nameEnd(std::size_t index) const;

    std::vector<Origin> m_origins;
    std::vector<Entry> m_entries;
    std::wstring m_names;
    mutable std::vector<std::uint32_t> m_bySid;  ///< entries by origin and last part
    mutable std::vector<std::pair<std::uint64_t, std::uint32_t>> m_byName;  ///< by a hash of domain and name
    mutable bool m_indexed = true;
};
