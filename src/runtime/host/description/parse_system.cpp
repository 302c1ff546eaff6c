#include "runtime/host/description/fold.h"
#include "runtime/host/description/section.h"
#include "runtime/host/description/windows_path.h"

/// [system], [environment] and [user].

namespace description {

namespace {

/// Reads whole numbers that are parted by single characters out of a text of fixed layout.
class FieldReader {
public:
    explicit FieldReader(std::wstring_view text) : m_rest(text) {}

    /// A number of `digits` digits between `least` and `most`.
    int number(std::size_t digits, int least, int most) {
        const auto value = numberOf(m_rest.substr(0, digits), 9999);
        if (!value || m_rest.size() < digits) return fail(least);
        m_rest.remove_prefix(digits);
        const auto result = static_cast<int>(*value);
        return result < least || result > most ? fail(least) : result;
    }
    void separator(wchar_t unit) {
        if (m_rest.starts_with(unit)) {
            m_rest.remove_prefix(1);
        } else {
            m_good = false;
        }
    }
    bool next(wchar_t unit) const { return m_rest.starts_with(unit); }
    void skipBlanks() { m_rest = trimmed(m_rest); }
    bool done() const { return m_good && m_rest.empty(); }

private:
    int fail(int value) {
        m_good = false;
        return value;
    }

    std::wstring_view m_rest;
    bool m_good = true;
};

void readOffset(FieldReader& reader, host::LocalTime& time) {
    const int sign = reader.next(L'-') ? -1 : 1;
    reader.separator(sign < 0 ? L'-' : L'+');
    const int hours = reader.number(2, 0, 14);
    reader.separator(L':');
    time.offsetMinutes = sign * (hours * 60 + reader.number(2, 0, 59));
}

/// "2026-11-19 07:30:00", then perhaps ".250" and " +01:00".
std::optional<host::LocalTime> timeOf(std::wstring_view text) {
    FieldReader reader(text);
    host::LocalTime time;
    time.year = reader.number(4, 1601, 9999);
    reader.separator(L'-');
    time.month = reader.number(2, 1, 12);
    reader.separator(L'-');
    time.day = reader.number(2, 1, 31);
    reader.separator(L' ');
    time.hour = reader.number(2, 0, 23);
    reader.separator(L':');
    time.minute = reader.number(2, 0, 59);
    reader.separator(L':');
    time.second = reader.number(2, 0, 59);
    if (reader.next(L'.')) {
        reader.separator(L'.');
        time.millisecond = reader.number(3, 0, 999);
    }
    reader.skipBlanks();
    if (reader.next(L'+') || reader.next(L'-')) readOffset(reader, time);
    if (!reader.done()) return std::nullopt;
    return time;
}

void readTime(Parsing& parsing, const Item& item, std::wstring_view value,
              std::optional<host::LocalTime>& target) {
    const auto time = timeOf(value);
    if (time) {
        target = time;
    } else {
        parsing.mistakes.add(item.place,
                             quoted(value) + " is no time, expected one like 2026-11-19 07:30:00");
    }
}

void readDirectory(Parsing& parsing, const Item& item, std::wstring_view value, std::wstring& target) {
    constexpr std::size_t longest = 32766;
    const bool hasDrive = value.size() > 2 && value[1] == L':' && value[2] == L'\\';
    if (value.size() > longest || (!hasDrive && !value.starts_with(L"\\\\"))) {
        parsing.mistakes.add(item.place,
                             quoted(value) + " is no absolute path, expected one like C:\\Windows");
        return;
    }
    target = fullPath(value, L"C:\\");
    while (target.size() > 3 && target.back() == L'\\')
        target.pop_back();
}

void readMemory(Parsing& parsing, const Item& item, std::wstring_view value, std::uint64_t& target) {
    Scanner scanner(value);
    const auto bytes = scanner.size();
    if (bytes && scanner.atEnd()) {
        target = *bytes;
    } else {
        parsing.mistakes.add(item.place, quoted(value) + " is no size, expected one like 16 GB");
    }
}

void readSystemVersion(Parsing& parsing, const Item& item, std::wstring_view value,
                       host::SystemFacts& facts) {
    std::uint32_t numbers[4];
    if (!readVersion(value, 0xFFFFFFFFU, numbers)) {
        parsing.mistakes.add(item.place, quoted(value) + " is no version, expected one like 10.0.20348.2113");
        return;
    }
    facts.major = numbers[0];
    facts.minor = numbers[1];
    facts.build = numbers[2];
    facts.revision = numbers[3];
}

void readArchitecture(Parsing& parsing, const Item& item, std::wstring_view value, std::wstring& target) {
    for (const std::wstring_view known : {L"x64", L"ARM64", L"x86"}) {
        if (equalFolded(value, known)) {
            target = known;
            return;
        }
    }
    parsing.mistakes.add(item.place, quoted(value) + " is no architecture, expected x64, ARM64 or x86");
}

void readCodePage(Parsing& parsing, const Item& item, std::wstring_view value, host::CodePageFacts& target) {
    Scanner scanner(value);
    const auto number = numberOf(scanner.word(), 65535);
    if (!number) {
        parsing.mistakes.add(item.place,
                             quoted(value) + " is no code page, expected one like 1252 ANSI - Latin I");
        return;
    }
    target = {static_cast<std::uint32_t>(*number), std::wstring(scanner.rest())};
}

/// "Ethernet: 192.0.2.10, fe80::1". An adapter of the same name is replaced.
void readAdapter(Parsing& parsing, const Item& item, std::wstring_view value) {
    const std::size_t colon = value.find(L": ");
    const std::size_t nameEnd =
        colon == std::wstring_view::npos && value.ends_with(L':') ? value.size() - 1 : colon;
    if (nameEnd == std::wstring_view::npos || nameEnd == 0) {
        parsing.mistakes.add(
            item.place, quoted(value) + " is no adapter, expected one like Ethernet: 192.0.2.10, fe80::1");
        return;
    }
    host::AdapterFacts adapter;
    adapter.name = trimmed(value.substr(0, nameEnd));
    std::wstring_view rest = value.substr(nameEnd + 1);
    while (!trimmed(rest).empty()) {
        const std::size_t comma = rest.find(L',');
        adapter.addresses.emplace_back(trimmed(rest.substr(0, comma)));
        rest.remove_prefix(comma == std::wstring_view::npos ? rest.size() : comma + 1);
    }
    for (host::AdapterFacts& known : parsing.machine.system.adapters) {
        if (equalFolded(known.name, adapter.name)) {
            known = std::move(adapter);
            return;
        }
    }
    parsing.machine.system.adapters.push_back(std::move(adapter));
}

/// The settings that need more than a copy of their text; false for a key that is none of them.
bool readSpecialSetting(Parsing& parsing, const Item& item, const Setting& setting) {
    SystemDescription& system = parsing.machine.system;
    host::SystemFacts& facts = system.facts;
    const std::wstring_view value = setting.value;
    if (setting.key == L"version") {
        readSystemVersion(parsing, item, value, facts);
    } else if (setting.key == L"server") {
        readFlag(item, value, parsing.mistakes, facts.server);
    } else if (setting.key == L"32bit") {
        readFlag(item, value, parsing.mistakes, facts.is32Bit);
    } else if (setting.key == L"architecture") {
        readArchitecture(parsing, item, value, facts.architecture);
    } else if (setting.key == L"processors") {
        readNumber(item, value, 1000000, parsing.mistakes, facts.processors);
    } else if (setting.key == L"memory") {
        readMemory(parsing, item, value, facts.memoryBytes);
    } else if (setting.key == L"started") {
        readTime(parsing, item, value, facts.startTime);
    } else if (setting.key == L"now") {
        readTime(parsing, item, value, system.now);
    } else if (setting.key == L"windows directory") {
        readDirectory(parsing, item, value, system.windowsDirectory);
    } else if (setting.key == L"current directory") {
        readDirectory(parsing, item, value, system.currentDirectory);
    } else if (setting.key == L"code page") {
        readCodePage(parsing, item, value, system.codePage);
    } else if (setting.key == L"adapter") {
        readAdapter(parsing, item, value);
    } else if (setting.key == L"sid") {
        readSid(item, value, parsing.mistakes, system.sid);
    } else {
        return false;
    }
    return true;
}

void parseSystemCause(Parsing& parsing, const Item& item) {
    const auto line = causeLineOf(item, parsing.mistakes);
    if (!line) return;
    SystemDescription& system = parsing.machine.system;
    if (equalFolded(line->what, L"system")) {
        system.systemCause = line->cause;
    } else if (equalFolded(line->what, L"adapters")) {
        system.adaptersCause = line->cause;
    } else if (equalFolded(line->what, L"code page")) {
        system.codePageCause = line->cause;
    } else {
        parsing.mistakes.add(item.place, quoted(line->what) +
                                             " cannot fail here, expected \"system\", \"adapters\" or "
                                             "\"code page\"");
    }
}

void parseSystemItem(Parsing& parsing, const Item& item) {
    if (isCause(item)) return parseSystemCause(parsing, item);
    const auto setting = settingOf(item, parsing.mistakes, "one like computer = WS01");
    if (!setting || readSpecialSetting(parsing, item, *setting)) return;
    host::SystemFacts& facts = parsing.machine.system.facts;
    if (setting->key == L"computer") {
        facts.computerName = setting->value;
    } else if (setting->key == L"windows") {
        facts.windowsName = setting->value;
    } else if (setting->key == L"release") {
        facts.release = setting->value;
    } else if (setting->key == L"processor") {
        facts.processorName = setting->value;
    } else {
        parsing.mistakes.add(
            item.place, "unknown setting " + quoted(setting->name) +
                            ", expected computer, windows, release, version, server, architecture, 32bit, "
                            "processor, processors, memory, started, now, windows directory, current "
                            "directory, code page, sid or adapter");
    }
}

void readUserName(Parsing& parsing, const Item& item, std::wstring_view value) {
    constexpr std::size_t longest = 511;  // what fits where the program tells GetUserNameW of 512 characters
    const std::size_t separator = value.rfind(L'\\');
    const bool qualified = separator != std::wstring_view::npos;
    const std::wstring_view name = qualified ? value.substr(separator + 1) : value;
    if (name.empty() || name.size() > longest) {
        parsing.mistakes.add(item.place, quoted(value) +
                                             " is no user name, expected NAME or DOMAIN\\NAME with at most " +
                                             std::to_string(longest) + " characters");
        return;
    }
    parsing.machine.user.name = name;
    parsing.machine.user.domain = qualified ? value.substr(0, separator) : std::wstring_view();
}

}  // namespace

void parseSystem(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseSystemItem(parsing, item); });
}

void parseEnvironment(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) {
        const auto setting = settingOf(item, parsing.mistakes, "one like DATA = D:\\Data");
        if (setting) parsing.machine.system.environment[setting->key] = setting->value;
    });
}

void parseUser(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) {
        const auto setting = settingOf(item, parsing.mistakes, "\"name = ...\" or \"administrator = yes\"");
        if (!setting) return;
        if (setting->key == L"name") {
            readUserName(parsing, item, setting->value);
        } else if (setting->key == L"administrator") {
            readFlag(item, setting->value, parsing.mistakes, parsing.machine.user.administrator);
        } else {
            parsing.mistakes.add(item.place, "unknown setting " + quoted(setting->name) +
                                                 ", expected \"name\" or \"administrator\"");
        }
    });
}

}  // namespace description
