#pragma once

/// The lines that a report collects before it, or the dispatcher, prints them.

#include <cstddef>
#include <variant>
#include <vector>

#include "runtime/base/CString.h"

/// Texts in order. A line can also be "the first units of the running text", which only grows: reports that
/// repeat all they had before stay linear in memory, and print the same bytes as copies would.
class ReportLines {
public:
    void add(const CString& line) { m_lines.emplace_back(line); }

    /// The text that grows across the whole report.
    void appendToRunningText(const CString& text) { m_runningText += text; }
    /// Adds the running text, as it stands now, as a line.
    void addRunningText() { m_lines.emplace_back(static_cast<std::size_t>(m_runningText.GetLength())); }

    int size() const { return static_cast<int>(m_lines.size()); }
    /// The line at `index`, counted from 0.
    CString line(int index) const {
        const auto& line = m_lines.at(static_cast<std::size_t>(index));
        if (const auto* text = std::get_if<CString>(&line)) return *text;
        return CString(m_runningText.units().substr(0, std::get<std::size_t>(line)));
    }

private:
    CString m_runningText;
    std::vector<std::variant<CString, std::size_t>> m_lines;
};
