#include "runtime/host/description/settings.h"

#include <algorithm>

#include "runtime/host/letter_case.h"

namespace description {

namespace {

/// The row of this name; null when there is none.
template <class Row>
const Row* rowNamed(std::span<const Row> rows, std::wstring_view name) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const Row& row) { return host::equalIgnoringCase(row.name, name); });
    return found == rows.end() ? nullptr : &*found;
}

void parseNamedCause(Parsing& parsing, const Item& item, std::span<const CauseRow> rows) {
    const auto line = causeLineOf(item, parsing.mistakes);
    if (!line) return;
    if (const CauseRow* row = rowNamed(rows, line->what)) {
        row->causeIn(parsing.machine) = line->cause;
    } else {
        parsing.mistakes.add(item.place, quoted(line->what) + " cannot fail here, expected " +
                                             quotedAlternatives(namesIn(rows)));
    }
}

}  // namespace

void parseSetting(Parsing& parsing, const Item& item, const SettingTable& table) {
    if (isCause(item) && !table.causes.empty()) return parseNamedCause(parsing, item, table.causes);
    const auto setting = settingOf(item, parsing.mistakes, table.example);
    if (!setting) return;
    if (const SettingRow* row = rowNamed(table.rows, setting->name)) {
        row->read({parsing, item.place, setting->value});
    } else {
        parsing.mistakes.add(item.place, "unknown setting " + quoted(setting->name) + ", expected " +
                                             quotedAlternatives(namesIn(table.rows)));
    }
}

void parseSettings(Parsing& parsing, const Section& section, const SettingTable& table) {
    forEachItem(section, [&](const Item& item) { parseSetting(parsing, item, table); });
}

void readFlag(const SettingLine& line, bool& target) {
    if (host::equalIgnoringCase(line.value, L"yes")) {
        target = true;
    } else if (host::equalIgnoringCase(line.value, L"no")) {
        target = false;
    } else {
        line.reject(" is neither \"yes\" nor \"no\"");
    }
}

void readNumber(const SettingLine& line, std::uint64_t maximum, std::uint32_t& target) {
    if (const auto number = numberOf(line.value, maximum)) {
        target = static_cast<std::uint32_t>(*number);
    } else {
        line.reject(" is no number, expected one up to " + std::to_string(maximum));
    }
}

void readSid(const SettingLine& line, std::optional<host::Sid>& target) {
    if (const auto sid = sidOf(line.value)) {
        target = sid;
    } else {
        line.reject(" is no SID, expected one like S-1-5-21-1-2-3");
    }
}

}  // namespace description
