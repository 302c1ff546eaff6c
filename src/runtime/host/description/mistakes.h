#pragma once

/// What is wrong with a description.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/host/description/machine.h"

namespace description {

/// Collects mistakes, each as "FILE:LINE: what is wrong, what was expected". Beyond `maximum` they are only
/// counted.
class Mistakes {
public:
    static constexpr std::size_t maximum = 20;

    void add(const Place& place, const std::string& text);

    bool any() const { return !m_texts.empty(); }
    const std::vector<std::string>& texts() const { return m_texts; }
    /// All of them, a line each, in UTF-8.
    std::string report() const;

private:
    std::vector<std::string> m_texts;
    std::size_t m_left = 0;
};

/// Text of a description as a mistake quotes it: in quotes, cut when it is long.
std::string quoted(std::wstring_view text);

/// What was expected instead: "a, b or c"; the latter with each in quotes, for names of several words.
std::string alternatives(std::span<const std::wstring_view> names);
std::string quotedAlternatives(std::span<const std::wstring_view> names);

/// The names of the rows of a table, in its order.
template <class Row>
std::vector<std::wstring_view> namesIn(std::span<const Row> rows) {
    std::vector<std::wstring_view> names;
    names.reserve(rows.size());
    for (const Row& row : rows)
        names.push_back(row.name);
    return names;
}

}  // namespace description
