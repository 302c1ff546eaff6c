#pragma once

/// A list in the order of its description, with one entry for each name.

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "runtime/host/letter_case.h"

namespace description {

/// `Entry` has a member `name`; names differ without regard to case.
template <class Entry>
class NamedList {
public:
    /// Replaces the entry of the same name, or adds the entry at the end.
    void put(Entry entry) {
        const auto [known, isNew] = m_positions.emplace(host::folded(entry.name), m_entries.size());
        if (isNew) {
            m_entries.push_back(std::move(entry));
        } else {
            m_entries[known->second] = std::move(entry);
        }
    }

    /// Takes an entry out; one that is not there is no mistake.
    void remove(std::wstring_view name) {
        const auto found = m_positions.find(host::folded(name));
        if (found == m_positions.end()) return;
        const std::size_t position = found->second;
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
        m_positions.erase(found);
        for (auto& [key, other] : m_positions) {
            if (other > position) --other;
        }
    }

    /// The position of the entry named `key` (folded); `entries().size()` when there is none.
    std::size_t positionOf(const std::wstring& key) const {
        const auto found = m_positions.find(key);
        return found == m_positions.end() ? m_entries.size() : found->second;
    }

    const std::vector<Entry>& entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
    std::unordered_map<std::wstring, std::size_t> m_positions;
};

}  // namespace description
