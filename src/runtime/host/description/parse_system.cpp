#include <tuple>

#include "runtime/host/description/section.h"
#include "runtime/host/description/settings.h"
#include "runtime/host/description/windows_path.h"
#include "runtime/host/letter_case.h"

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

void readTime(const SettingLine& line, std::optional<host::LocalTime>& target) {
    const auto time = timeOf(line.value);
    if (time) {
        target = time;
    } else {
        line.reject(" is no time, expected one like 2026-11-19 07:30:00");
    }
}

void readDirectory(const SettingLine& line, std::wstring& target) {
    constexpr std::size_t longest = 32766;
    const bool hasDrive = line.value.size() > 2 && line.value[1] == L':' && line.value[2] == L'\\';
    if (line.value.size() > longest || (!hasDrive && !line.value.starts_with(L"\\\\"))) {
        line.reject(" is no absolute path, expected one like C:\\Windows");
        return;
    }
    target = fullPath(line.value, L"C:\\");
    while (target.size() > 3 && target.back() == L'\\')
        target.pop_back();
}

void readMemory(const SettingLine& line, std::uint64_t& target) {
    Scanner scanner(line.value);
    const auto bytes = scanner.size();
    if (bytes && scanner.atEnd()) {
        target = *bytes;
    } else {
        line.reject(" is no size, expected one like 16 GB");
    }
}

void readSystemVersion(const SettingLine& line, host::SystemFacts& facts) {
    const auto version = host::versionOf(line.value);
    if (!version) {
        line.reject(" is no version, expected one like 10.0.20348.2113");
        return;
    }
    std::tie(facts.major, facts.minor, facts.build, facts.revision) = std::tuple_cat(*version);
}

void readArchitecture(const SettingLine& line, std::wstring& target) {
    static constexpr std::wstring_view architectures[] = {L"x64", L"ARM64", L"x86"};
    for (const std::wstring_view known : architectures) {
        if (host::equalIgnoringCase(line.value, known)) {
            target = known;
            return;
        }
    }
    line.reject(" is no architecture, expected " + alternatives(architectures));
}

void readCodePage(const SettingLine& line, host::CodePageFacts& target) {
    Scanner scanner(line.value);
    const auto number = numberOf(scanner.word(), 65535);
    if (!number) {
        line.reject(" is no code page, expected one like 1252 ANSI - Latin I");
        return;
    }
    target = {static_cast<std::uint32_t>(*number), std::wstring(scanner.rest())};
}

/// "Ethernet: 192.0.2.10, fe80::1". An adapter of the same name is replaced.
void readAdapter(const SettingLine& line) {
    const std::size_t colon = line.value.find(L": ");
    const std::size_t nameEnd =
        colon == std::wstring_view::npos && line.value.ends_with(L':') ? line.value.size() - 1 : colon;
    if (nameEnd == std::wstring_view::npos || nameEnd == 0) {
        line.reject(" is no adapter, expected one like Ethernet: 192.0.2.10, fe80::1");
        return;
    }
    host::AdapterFacts adapter;
    adapter.name = trimmed(line.value.substr(0, nameEnd));
    std::wstring_view rest = line.value.substr(nameEnd + 1);
    while (!trimmed(rest).empty()) {
        const std::size_t comma = rest.find(L',');
        adapter.addresses.emplace_back(trimmed(rest.substr(0, comma)));
        rest.remove_prefix(comma == std::wstring_view::npos ? rest.size() : comma + 1);
    }
    for (host::AdapterFacts& known : line.machine().system.adapters) {
        if (host::equalIgnoringCase(known.name, adapter.name)) {
            known = std::move(adapter);
            return;
        }
    }
    line.machine().system.adapters.push_back(std::move(adapter));
}

SystemDescription& systemOf(const SettingLine& line) {
    return line.machine().system;
}

host::SystemFacts& factsOf(const SettingLine& line) {
    return systemOf(line).facts;
}

constexpr SettingRow systemRows[] = {
    {L"computer", [](const SettingLine& line) { factsOf(line).computerName = line.value; }},
    {L"windows", [](const SettingLine& line) { factsOf(line).windowsName = line.value; }},
    {L"release", [](const SettingLine& line) { factsOf(line).release = line.value; }},
    {L"version", [](const SettingLine& line) { readSystemVersion(line, factsOf(line)); }},
    {L"server", [](const SettingLine& line) { readFlag(line, factsOf(line).server); }},
    {L"architecture", [](const SettingLine& line) { readArchitecture(line, factsOf(line).architecture); }},
    {L"32bit", [](const SettingLine& line) { readFlag(line, factsOf(line).is32Bit); }},
    {L"processor", [](const SettingLine& line) { factsOf(line).processorName = line.value; }},
    {L"processors", [](const SettingLine& line) { readNumber(line, 1000000, factsOf(line).processors); }},
    {L"memory", [](const SettingLine& line) { readMemory(line, factsOf(line).memoryBytes); }},
    {L"started", [](const SettingLine& line) { readTime(line, factsOf(line).startTime); }},
    {L"now", [](const SettingLine& line) { readTime(line, systemOf(line).now); }},
    {L"windows directory",
     [](const SettingLine& line) { readDirectory(line, systemOf(line).windowsDirectory); }},
    {L"current directory",
     [](const SettingLine& line) { readDirectory(line, systemOf(line).currentDirectory); }},
    {L"code page", [](const SettingLine& line) { readCodePage(line, systemOf(line).codePage); }},
    {L"sid", [](const SettingLine& line) { readSid(line, systemOf(line).sid); }},
    {L"adapter", readAdapter},
};

constexpr CauseRow systemCauses[] = {
    {L"system", [](Machine& machine) -> Cause& { return machine.system.systemCause; }},
    {L"adapters", [](Machine& machine) -> Cause& { return machine.system.adaptersCause; }},
    {L"code page", [](Machine& machine) -> Cause& { return machine.system.codePageCause; }},
};

void readUserName(const SettingLine& line) {
    constexpr std::size_t longest = 511;  // what fits where the program tells GetUserNameW of 512 characters
    const std::size_t separator = line.value.rfind(L'\\');
    const bool qualified = separator != std::wstring_view::npos;
    const std::wstring_view name = qualified ? line.value.substr(separator + 1) : line.value;
    if (name.empty() || name.size() > longest) {
        line.reject(" is no user name, expected NAME or DOMAIN\\NAME with at most " +
                    std::to_string(longest) + " characters");
        return;
    }
    line.machine().user.name = name;
    line.machine().user.domain = qualified ? line.value.substr(0, separator) : std::wstring_view();
}

constexpr SettingRow userRows[] = {
    {L"name", readUserName},
    {L"administrator", [](const SettingLine& line) { readFlag(line, line.machine().user.administrator); }},
};

}  // namespace

constinit const SettingTable systemSettings{"computer = WS01", systemRows, systemCauses};
constinit const SettingTable userSettings{"name = WS01\\alice", userRows};

void parseEnvironment(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) {
        const auto setting = settingOf(item, parsing.mistakes, "DATA = D:\\Data");
        if (setting) parsing.machine.system.environment[setting->key] = setting->value;
    });
}

}  // namespace description
