#pragma once

/// Things found by account.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "runtime/host/facts.h"
#include "runtime/host/letter_case.h"

/// Values by account, in the order in which they were added. Which accounts are the same,
/// `host::isSameAccount` says.
template <class Value>
class AccountIndex {
public:
    void add(const host::Account& account, Value value) {
        const std::size_t index = m_items.size();
        m_items.push_back({std::move(value), !account.sid.empty()});
        if (!account.sid.empty()) m_bySid.emplace(account.sid, index);
        if (!account.name.empty()) m_byName.emplace(nameKey(account), index);
    }

    /// Hands every value of the account to `take`.
    template <class Take>
    void forEach(const host::Account& account, Take take) const {
        const bool hasSid = !account.sid.empty();
        if (hasSid) {
            const auto [first, last] = m_bySid.equal_range(account.sid);
            for (auto found = first; found != last; ++found)
                take(m_items[found->second].value);
        }
        if (account.name.empty()) return;
        const auto [first, last] = m_byName.equal_range(nameKey(account));
        for (auto found = first; found != last; ++found) {
            const Item& item = m_items[found->second];
            if (!hasSid || !item.hasSid) take(item.value);
        }
    }

    /// The first value of the account; null when there is none. It stays valid until the index changes.
    const Value* find(const host::Account& account) const {
        const Value* result = nullptr;
        forEach(account, [&result](const Value& value) {
            if (result == nullptr) result = &value;
        });
        return result;
    }

    void clear() noexcept {
        m_items.clear();
        m_bySid.clear();
        m_byName.clear();
    }

private:
    struct Item {
        Value value;
        bool hasSid;
    };
    using NameKey = std::pair<std::wstring, std::wstring>;

    static NameKey nameKey(const host::Account& account) {
        return {host::folded(account.domain), host::folded(account.name)};
    }

    std::vector<Item> m_items;
    std::multimap<host::Sid, std::size_t> m_bySid;
    std::multimap<NameKey, std::size_t> m_byName;
};
