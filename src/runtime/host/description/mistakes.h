#pragma once

/// What is wrong with a description.

#include <string>
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

}  // namespace description
