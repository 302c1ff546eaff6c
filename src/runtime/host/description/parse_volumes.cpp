#include <algorithm>

#include "runtime/host/description/section.h"
#include "runtime/host/description/settings.h"
#include "runtime/host/letter_case.h"

/// [volumes], [cluster] and [services].

namespace description {

namespace {

// --- Volumes -----------------------------------------------------------------------------------------------

constexpr const char* volumeExample = "C: = fixed NTFS \"System\" 100 GB free 40 GB";

struct TypeName {
    std::wstring_view name;
    host::DriveType type;
};

constexpr TypeName typeNames[] = {
    {L"fixed", host::DriveType::fixed},     {L"removable", host::DriveType::removable},
    {L"network", host::DriveType::network}, {L"optical", host::DriveType::optical},
    {L"ram", host::DriveType::ramDisk},     {L"unknown", host::DriveType::unknown},
};

/// A device name that stays the same for the same volume.
std::wstring madeUpDevice(std::wstring_view name) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const wchar_t unit : name)
        hash = (hash ^ static_cast<std::uint32_t>(unit)) * 0x100000001B3U;
    constexpr wchar_t digits[] = L"0123456789abcdef";
    std::wstring text = L"\\\\?\\Volume{5f1c3a20-";
    for (unsigned int index = 0; index < 8; ++index) {
        if (index == 4) text += L'-';
        text += digits[(hash >> (4U * index)) & 0xFU];
    }
    return text + L"-8d41-806e6f6e6963}\\";
}

/// "C:", or a device name; false for anything else.
bool readVolumeName(std::wstring_view name, host::VolumeFacts& facts) {
    if (name.size() == 2 && name[1] == L':') {
        const wchar_t letter = host::folded(name)[0];
        if (letter < L'a' || letter > L'z') return false;
        facts.letter = static_cast<wchar_t>(letter - L'a' + L'A');
        facts.device = madeUpDevice(host::folded(name));
        return true;
    }
    if (!name.starts_with(L"\\\\?\\") || name.size() < 6) return false;
    facts.device = name;
    if (!facts.device.ends_with(L'\\')) facts.device += L'\\';
    return true;
}

void failWith(const Cause& cause, VolumeDescription& volume) {
    volume.cause = cause;
    volume.facts.fileSystem = answerOf<std::wstring>(cause);
    volume.facts.label = answerOf<std::wstring>(cause);
    volume.facts.sizeBytes = answerOf<std::uint64_t>(cause);
    volume.facts.freeBytes = answerOf<std::uint64_t>(cause);
}

void readFolders(std::wstring_view text, host::VolumeFacts& facts) {
    while (!text.empty()) {
        const std::size_t end = text.find(L'|');
        std::wstring folder(trimmed(text.substr(0, end)));
        if (!folder.empty() && !folder.ends_with(L'\\')) folder += L'\\';
        if (!folder.empty()) facts.folders.push_back(std::move(folder));
        text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    }
    std::sort(facts.folders.begin(), facts.folders.end());
}

/// What follows the type, in any order: a file system, a label in quotes, a size, "free SIZE", a cause,
/// "paths CAUSE"; "folders ..." last. False for what is none of them.
bool readVolumeDetail(Scanner& scanner, VolumeDescription& volume) {
    host::VolumeFacts& facts = volume.facts;
    if (const auto label = scanner.quotedText()) {
        facts.label = *label;
    } else if (const auto cause = scanner.cause()) {
        failWith(*cause, volume);
    } else if (const auto size = scanner.size()) {
        facts.sizeBytes = *size;
    } else if (scanner.take(L"free")) {
        const auto free = scanner.size();
        if (!free) return false;
        facts.freeBytes = *free;
    } else if (scanner.take(L"folders")) {
        readFolders(scanner.rest(), facts);
        scanner = Scanner({});
    } else if (scanner.take(L"paths")) {
        const auto unanswered = scanner.cause();
        if (!unanswered) return false;
        facts.paths = answerOf<host::Done>(*unanswered);
    } else if (scanner.take(L"device")) {
        facts.device = scanner.word();
        return !facts.device.empty();
    } else if (scanner.nextWord().front() == L'"' || facts.fileSystem.found()) {
        return false;
    } else {
        facts.fileSystem = std::wstring(scanner.word());
    }
    return true;
}

void parseVolume(Parsing& parsing, const Item& item, const Setting& setting) {
    const std::string expected = std::string(", expected one like ") + volumeExample;
    VolumeDescription volume;
    volume.facts.label = std::wstring();
    if (!readVolumeName(setting.name, volume.facts)) {
        parsing.mistakes.add(item.place, quoted(setting.name) + " is no volume" + expected);
        return;
    }
    Scanner scanner(setting.value);
    const auto* type = std::find_if(std::begin(typeNames), std::end(typeNames),
                                    [&](const TypeName& known) { return scanner.take(known.name); });
    if (type == std::end(typeNames)) {
        parsing.mistakes.add(item.place, quoted(setting.value) + " begins with no type of drive, expected " +
                                             alternatives(namesIn<TypeName>(typeNames)));
        return;
    }
    volume.facts.type = type->type;
    while (!scanner.atEnd()) {
        const std::wstring rest(scanner.rest());
        if (!readVolumeDetail(scanner, volume)) {
            parsing.mistakes.add(item.place, quoted(rest) + " tells nothing about a volume" + expected);
            return;
        }
    }
    parsing.machine.volumes.volumes[setting.key] = std::move(volume);
}

// --- Cluster -----------------------------------------------------------------------------------------------

/// The longest of the states with which the text ends, behind a name; nothing when it ends with none.
std::wstring_view stateAtEnd(std::wstring_view text, std::span<const std::wstring_view> states) {
    std::wstring_view longest;
    for (const std::wstring_view state : states) {
        if (text.size() < state.size() + 2 || state.size() <= longest.size()) continue;
        const std::size_t begin = text.size() - state.size();
        if (host::equalIgnoringCase(text.substr(begin), state) && text[begin - 1] == L' ') longest = state;
    }
    return longest;
}

/// A node or group of the same name is replaced.
template <class Part>
void putPart(std::vector<Part>& parts, Part part) {
    const auto known = std::find_if(parts.begin(), parts.end(), [&](const Part& other) {
        return host::equalIgnoringCase(other.name, part.name);
    });
    if (known == parts.end()) {
        parts.push_back(std::move(part));
    } else {
        *known = std::move(part);
    }
}

void readNode(const SettingLine& line, host::ClusterFacts& facts) {
    static constexpr std::wstring_view states[] = {L"up", L"down", L"paused", L"joining", L"unknown"};
    const std::wstring_view value = line.value;
    const std::wstring_view state = stateAtEnd(value, states);
    if (state.empty()) return line.reject(" is no node, expected NAME and " + alternatives(states));
    host::ClusterNode node;
    node.name = trimmed(value.substr(0, value.size() - state.size()));
    node.state = state;
    putPart(facts.nodes, std::move(node));
}

/// "Cluster Group owner NODE1 online".
void readClusterGroup(const SettingLine& line, host::ClusterFacts& facts) {
    static constexpr std::wstring_view states[] = {L"online",        L"offline", L"failed",
                                                   L"partly online", L"pending", L"unknown"};
    const std::wstring_view value = line.value;
    const std::wstring_view state = stateAtEnd(value, states);
    if (state.empty()) {
        return line.reject(" is no group, expected NAME [owner NODE] and " + alternatives(states));
    }
    host::ClusterGroup group;
    group.state = state;
    std::wstring_view name = trimmed(value.substr(0, value.size() - state.size()));
    const std::size_t owner = host::folded(name).rfind(L" owner ");
    if (owner != std::wstring_view::npos) {
        group.owner = trimmed(name.substr(owner + 7));
        name = trimmed(name.substr(0, owner));
    }
    group.name = name;
    putPart(facts.groups, std::move(group));
}

/// Of the cluster that the section itself has made, before any of its lines is read.
host::ClusterFacts& clusterOf(const SettingLine& line) {
    return line.machine().cluster->facts;
}

constexpr SettingRow clusterRows[] = {
    {L"name", [](const SettingLine& line) { clusterOf(line).name = line.value; }},
    {L"node", [](const SettingLine& line) { readNode(line, clusterOf(line)); }},
    {L"group", [](const SettingLine& line) { readClusterGroup(line, clusterOf(line)); }},
};

void parseClusterItem(Parsing& parsing, const Item& item) {
    if (!isCause(item)) return parseSetting(parsing, item, clusterSettings);
    const auto line = causeLineOf(item, parsing.mistakes);
    if (line) parsing.machine.cluster->cause = line->cause;
}

// --- Services ----------------------------------------------------------------------------------------------

constexpr std::wstring_view serviceStates[] = {L"running",       L"stopped",      L"paused",
                                               L"start pending", L"stop pending", L"continue pending",
                                               L"pause pending"};

void parseService(Parsing& parsing, const Item& item, const Setting& setting) {
    for (const std::wstring_view state : serviceStates) {
        const std::wstring_view value = setting.value;
        if (!host::equalIgnoringCase(value.substr(0, state.size()), state)) continue;
        if (value.size() > state.size() && value[state.size()] != L' ') continue;
        ServiceDescription service;
        service.facts.state = state;
        service.facts.running = state == L"running";
        service.facts.imagePath = trimmed(value.substr(state.size()));
        parsing.machine.services[setting.key] = std::move(service);
        return;
    }
    parsing.mistakes.add(item.place, quoted(setting.value) + " begins with no state, expected " +
                                         alternatives(serviceStates) + ", then the path of the image");
}

void parseServiceItem(Parsing& parsing, const Item& item) {
    if (isCause(item)) {
        const auto line = causeLineOf(item, parsing.mistakes);
        if (line) parsing.machine.services[host::folded(line->what)].cause = line->cause;
        return;
    }
    if (const auto removed = removedName(item)) {
        parsing.machine.services.erase(host::folded(*removed));
        return;
    }
    const auto setting =
        settingOf(item, parsing.mistakes, "rkhsmdrv = running C:\\Windows\\system32\\drivers\\rkhsmdrv.sys");
    if (setting) parseService(parsing, item, *setting);
}

void parseVolumeItem(Parsing& parsing, const Item& item) {
    if (isCause(item)) {
        const auto line = causeLineOf(item, parsing.mistakes);
        if (line) parsing.machine.volumes.cause = line->cause;
        return;
    }
    if (const auto removed = removedName(item)) {
        parsing.machine.volumes.volumes.erase(host::folded(*removed));
        return;
    }
    const auto setting = settingOf(item, parsing.mistakes, volumeExample);
    if (setting) parseVolume(parsing, item, *setting);
}

}  // namespace

constinit const SettingTable clusterSettings{"node = NODE1 up", clusterRows};

void parseVolumes(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseVolumeItem(parsing, item); });
}

void parseCluster(Parsing& parsing, const Section& section) {
    if (!parsing.machine.cluster) parsing.machine.cluster.emplace();
    forEachItem(section, [&](const Item& item) { parseClusterItem(parsing, item); });
}

void parseServices(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseServiceItem(parsing, item); });
}

}  // namespace description
