#pragma once

/// Sections of settings: a table says what may stand in each, and everything else follows from it.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/host/description/section.h"

namespace description {

/// A setting whose name stands in the table of its section, as its reader sees it.
struct SettingLine {
    Parsing& parsing;
    const Place& place;
    std::wstring_view value;

    Machine& machine() const { return parsing.machine; }
    /// Adds a mistake: the value, quoted, and what is wrong with it.
    void reject(const std::string& why) const { parsing.mistakes.add(place, quoted(value) + why); }
};

/// Puts the value where it belongs, or rejects it and changes nothing.
using SettingReader = void (*)(const SettingLine&);

struct SettingRow {
    std::wstring_view name;
    SettingReader read;
};

/// What a line "! error CODE NAME" of the section makes fail.
struct CauseRow {
    std::wstring_view name;
    Cause& (*causeIn)(Machine&);
};

/// Names are found without regard to case; mistakes list them in the order of the rows.
struct SettingTable {
    const char* example;  ///< a good line of the section
    std::span<const SettingRow> rows;
    std::span<const CauseRow> causes{};  ///< empty: nothing fails by a name
};

/// Reads one line of a section with this table.
void parseSetting(Parsing& parsing, const Item& item, const SettingTable& table);
/// Reads a section that holds nothing but what its table says.
void parseSettings(Parsing& parsing, const Section& section, const SettingTable& table);

// The tables, beside the parsers of their sections.
extern const SettingTable machineSettings, systemSettings, userSettings, domainSettings, clusterSettings;

/// Every section that has a table, by its name.
struct SettingSection {
    std::wstring_view name;
    const SettingTable& table;
};
std::vector<SettingSection> settingSections();

// Readers of values that several settings share.
void readFlag(const SettingLine& line, bool& target);
void readNumber(const SettingLine& line, std::uint64_t maximum, std::uint32_t& target);
void readSid(const SettingLine& line, std::optional<host::Sid>& target);

}  // namespace description
