#include "runtime/host/description/parse.h"

#include <algorithm>

#include "runtime/host/description/section.h"
#include "runtime/host/description/settings.h"
#include "runtime/host/letter_case.h"
#include "runtime/host/utf.h"

namespace description {

namespace {

constexpr int deepestBase = 16;

using Parser = void (*)(Parsing&, const Section&);

struct SectionKind {
    std::wstring_view name;
    Parser parse;             ///< null where the settings are all that there is
    void (*clear)(Machine&);  ///< what a line "clear" does; null where there is nothing to inherit
    const SettingTable* settings = nullptr;
};

void parseMachineSection(Parsing& parsing, const Section& section);

constexpr std::wstring_view machineSection = L"machine";
constexpr std::wstring_view contentsSection = L"contents";
constexpr std::wstring_view registrySection = L"registry";

/// The register of sections.
const SectionKind sectionKinds[] = {
    {machineSection, parseMachineSection, nullptr, &machineSettings},
    {L"system", nullptr, [](Machine& machine) { machine.system = {}; }, &systemSettings},
    {L"environment", parseEnvironment, [](Machine& machine) { machine.system.environment.clear(); }},
    {L"user", nullptr, [](Machine& machine) { machine.user = {}; }, &userSettings},
    {L"users", [](Parsing& p, const Section& s) { parseUsers(p, s, p.machine.users); },
     [](Machine& machine) { machine.users = {}; }},
    {L"groups", [](Parsing& p, const Section& s) { parseGroups(p, s, p.machine.groups); },
     [](Machine& machine) { machine.groups = {}; }},
    {L"domain", nullptr, [](Machine& machine) { machine.domain = {}; }, &domainSettings},
    {L"domain users", [](Parsing& p, const Section& s) { parseUsers(p, s, p.machine.domainUsers); },
     [](Machine& machine) { machine.domainUsers = {}; }},
    {L"domain groups", [](Parsing& p, const Section& s) { parseGroups(p, s, p.machine.domainGroups); },
     [](Machine& machine) { machine.domainGroups = {}; }},
    {L"global groups", [](Parsing& p, const Section& s) { parseGroups(p, s, p.machine.globalGroups); },
     [](Machine& machine) { machine.globalGroups = {}; }},
    {L"volumes", parseVolumes, [](Machine& machine) { machine.volumes = {}; }},
    {L"cluster", parseCluster, [](Machine& machine) { machine.cluster.reset(); }, &clusterSettings},
    {L"services", parseServices, [](Machine& machine) { machine.services.clear(); }},
    {L"versions", parseVersions, [](Machine& machine) { machine.files.versions.clear(); }},
    {registrySection, parseRegistry, [](Machine& machine) { machine.registry.clear(); }},
    {L"files", parseFiles, [](Machine& machine) { machine.files.entries.clear(); }},
    {contentsSection, parseContents, nullptr},
    {L"failures", parseFailures, [](Machine& machine) { machine.failures.clear(); }},
};

const SectionKind* kindNamed(std::wstring_view name) {
    const auto* found =
        std::find_if(std::begin(sectionKinds), std::end(sectionKinds),
                     [&](const SectionKind& kind) { return host::equalIgnoringCase(kind.name, name); });
    return found == std::end(sectionKinds) ? nullptr : found;
}

std::string sectionNames() {
    std::string names;
    for (const SectionKind& kind : sectionKinds) {
        names += (names.empty() ? "[" : ", [") + host::toUtf8(kind.name) + "]";
    }
    return names;
}

/// The text between the brackets of a heading; nothing for a line that is no heading.
std::optional<std::wstring_view> headingOf(std::wstring_view line) {
    line = trimmed(line);
    if (line.starts_with(L"[") && !line.ends_with(L"]")) {
        const std::size_t comment = line.find(L"]  ");
        if (comment != std::wstring_view::npos && trimmed(line.substr(comment + 1)).starts_with(L"#")) {
            line = line.substr(0, comment + 1);
        }
    }
    if (line.size() < 2 || line.front() != L'[' || line.back() != L']') return std::nullopt;
    return trimmed(line.substr(1, line.size() - 2));
}

/// Begins the section of a heading; false when no section has that name.
bool beginSection(std::wstring_view heading, const Place& place, std::vector<Section>& sections) {
    Section section;
    section.file = place.file;
    section.line = place.line;
    const std::size_t blank = heading.find_first_of(L" \t");
    if (kindNamed(heading) != nullptr) {
        section.name = host::folded(heading);
    } else if (host::equalIgnoringCase(heading.substr(0, blank), contentsSection)) {
        section.name = contentsSection;
        section.argument = trimmed(heading.substr(blank));
    } else {
        return false;
    }
    sections.push_back(std::move(section));
    return true;
}

/// Sections that may hold lines in brackets of their own.
bool holdsBrackets(const Section& section) {
    return section.name == registrySection || section.name == contentsSection;
}

std::vector<Section> sectionsOf(const std::string& file, const std::vector<std::wstring>& lines,
                                Mistakes& mistakes) {
    std::vector<Section> sections;
    bool unknown = false;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const Place place{file, index + 1};
        const std::optional<std::wstring_view> heading = headingOf(lines[index]);
        if (heading && beginSection(*heading, place, sections)) {
            unknown = false;
            continue;
        }
        if (heading && (sections.empty() || !holdsBrackets(sections.back()))) {
            mistakes.add(
                place, "unknown section [" + host::toUtf8(*heading) + "], expected one of " + sectionNames());
            unknown = true;
            continue;
        }
        if (unknown) continue;
        if (!sections.empty()) {
            sections.back().lines.push_back({index + 1, lines[index]});
        } else if (!trimmed(lines[index]).empty() && trimmed(lines[index])[0] != L'#') {
            mistakes.add(place, quoted(trimmed(lines[index])) +
                                    " stands in no section, expected a heading like [system]");
        }
    }
    return sections;
}

void parseFile(Parsing parsing, const std::string& name, const Place& from);

std::string fileOf(const SourceFiles& files, const std::string& name) {
    if (!files.isFolder(name)) return name;
    return name + (name.ends_with('/') ? "machine.txt" : "/machine.txt");
}

/// "base = ../member": the description on which this one stands.
void readBase(const SettingLine& line) {
    const Parsing& parsing = line.parsing;
    if (!parsing.atStart) {
        parsing.mistakes.add(line.place, "\"base\" comes too late, expected it before everything else");
        return;
    }
    const std::string value = host::toUtf8(line.value);
    const std::string name = value == "sample" ? std::string(samplePrefix) + "machine.txt"
                                               : fileOf(parsing.files, besideFile(line.place.file, value));
    parseFile({parsing.files, parsing.machine, parsing.mistakes, parsing.depth + 1}, name, line.place);
}

/// Hands the lines of a file that stands beside the description to the parser of one section.
void readListFile(const SettingLine& line, Parser parse) {
    const std::string name = besideFile(line.place.file, host::toUtf8(line.value));
    std::string why;
    const auto bytes = line.parsing.files.read(name, why);
    if (!bytes) {
        line.parsing.mistakes.add(line.place, name + " cannot be read: " + why);
        return;
    }
    const std::vector<std::wstring> lines = linesOf(*bytes);
    Section section;
    section.file = name;
    section.lines.reserve(lines.size());
    for (const std::wstring& text : lines)
        section.lines.push_back({section.lines.size() + 1, text});
    parse(line.parsing, section);
}

constexpr SettingRow machineRows[] = {
    {L"base", readBase},
    {L"registry", [](const SettingLine& line) { readListFile(line, parseRegistry); }},
    {L"files", [](const SettingLine& line) { readListFile(line, parseFiles); }},
};

void parseMachineSection(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) {
        parseSetting(parsing, item, machineSettings);
        parsing.atStart = false;
    });
}

/// Takes a line "clear" out of the section when it is the first one.
bool takeClear(Section& section) {
    const auto first = std::find_if(section.lines.begin(), section.lines.end(), [](const SectionLine& line) {
        const std::wstring_view text = trimmed(line.text);
        return !text.empty() && text[0] != L'#';
    });
    if (first == section.lines.end() || trimmed(first->text) != L"clear") return false;
    section.lines.erase(section.lines.begin(), first + 1);
    return true;
}

void parseSection(Parsing& parsing, Section& section) {
    const SectionKind* kind = kindNamed(section.name);
    if (kind == nullptr) return;  // no such section was begun
    if (kind->clear != nullptr && takeClear(section)) {
        kind->clear(parsing.machine);
        if (section.lines.empty()) return;
    }
    if (kind->parse != nullptr) return kind->parse(parsing, section);
    parseSettings(parsing, section, *kind->settings);
}

void parseFile(Parsing parsing, const std::string& name, const Place& from) {
    std::string why;
    const bool tooDeep = parsing.depth > deepestBase;
    const auto bytes = tooDeep ? std::nullopt : parsing.files.read(name, why);
    if (tooDeep) {
        parsing.mistakes.add(from, "too many descriptions stand on each other, expected at most " +
                                       std::to_string(deepestBase));
        return;
    }
    if (!bytes) {
        parsing.mistakes.add(from, "the description " + name + " cannot be read: " + why);
        return;
    }
    const std::vector<std::wstring> lines = linesOf(*bytes);
    for (Section& section : sectionsOf(name, lines, parsing.mistakes)) {
        parseSection(parsing, section);
        parsing.atStart = false;
    }
}

}  // namespace

constinit const SettingTable machineSettings{"base = sample", machineRows};

std::vector<SettingSection> settingSections() {
    std::vector<SettingSection> sections;
    for (const SectionKind& kind : sectionKinds) {
        if (kind.settings != nullptr) sections.push_back({kind.name, *kind.settings});
    }
    return sections;
}

Machine parseMachine(const SourceFiles& files, const std::string& name, Mistakes& mistakes) {
    Machine machine;
    const std::string file = fileOf(files, name);
    parseFile({files, machine, mistakes}, file, {file, 0});
    return machine;
}

}  // namespace description
