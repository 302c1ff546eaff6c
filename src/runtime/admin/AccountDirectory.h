#pragma once

/// Things found by account.

#include <map>
#include <string>

#include "runtime/util/QVSid.h"

/// Two accounts are the same when their SIDs are; where one of them has no SID, when their full names are, in
/// capital or small letters.
template <class Value>
class AccountDirectory {
public:
    /// The value of the account; null when there is none. It stays valid until `clear`.
    const Value* find(const QVSid& account) const {
        if (!account.sid().empty()) {
            const auto found = m_bySid.find(account.sid());
            if (found != m_bySid.end()) return &found->second.value;
        }
        const auto found = m_byName.find(nameKey(account));
        const bool differs = found != m_byName.end() && found->second.hasSid && !account.sid().empty();
        return found == m_byName.end() || differs ? nullptr : &found->second.value;
    }

    /// Adds a value; an account that is there already keeps the value it has.
    void add(const QVSid& account, const Value& value) {
        const Item item{value, !account.sid().empty()};
        if (item.hasSid) m_bySid.emplace(account.sid(), item);
        m_byName.emplace(nameKey(account), item);
    }

    void clear() noexcept {
        m_bySid.clear();
        m_byName.clear();
    }

private:
    struct Item {
        Value value;
        bool hasSid;
    };

    static std::wstring nameKey(const QVSid& account) {
        CString name = account.fullName();
        name.MakeLower();
        return name.units();
    }

    std::map<host::Sid, Item> m_bySid;
    std::map<std::wstring, Item> m_byName;
};
