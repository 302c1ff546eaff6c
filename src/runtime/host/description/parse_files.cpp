#include "runtime/host/description/section.h"
#include "runtime/host/description/windows_path.h"
#include "runtime/host/letter_case.h"
#include "runtime/host/utf.h"

/// [files], [contents ...], [versions], and file lists as `dir /s /b` prints them.

namespace description {

namespace {

/// The key of an absolute path; nothing, and a mistake, for another text.
std::optional<std::wstring> keyOf(Parsing& parsing, const Place& place, std::wstring_view path) {
    const bool hasDrive = path.size() > 2 && path[1] == L':' && (path[2] == L'\\' || path[2] == L'/');
    const bool isAbsolute = hasDrive || path.starts_with(L"\\\\");
    std::wstring key =
        isAbsolute && isDescribedPath(path) ? pathKey(fullPath(path, L"C:\\")) : std::wstring();
    if (!key.empty()) return key;
    parsing.mistakes.add(place,
                         quoted(path) + " is no absolute path, expected one like C:\\Windows\\notepad.exe");
    return std::nullopt;
}

FileEntry& addEntry(FileTree& tree, const std::wstring& key, bool directory) {
    for (std::wstring parent = parentKey(key); !parent.empty(); parent = parentKey(parent)) {
        FileEntry& entry = tree.entries[parent];
        if (entry.directory) break;
        entry.directory = true;
    }
    FileEntry& entry = tree.entries[key];
    entry.directory = entry.directory || directory;
    return entry;
}

/// Takes one path out of a map, with all below it.
template <class Map>
void removeBelow(Map& map, const std::wstring& key) {
    map.erase(key);
    map.erase(map.lower_bound(key + L"\\"), map.lower_bound(key + L"]"));
}

void removeEntry(FileTree& tree, const std::wstring& key) {
    removeBelow(tree.entries, key);
    removeBelow(tree.contents, key);
    removeBelow(tree.versions, key);
}

void parseFileItem(Parsing& parsing, const Item& item) {
    FileTree& tree = parsing.machine.files;
    if (isCause(item)) {
        const auto line = causeLineOf(item, parsing.mistakes);
        const auto key = line ? keyOf(parsing, item.place, line->what) : std::nullopt;
        if (key) addEntry(tree, *key, false).cause = line->cause;
    } else if (const auto removed = removedName(item)) {
        const auto key = keyOf(parsing, item.place, *removed);
        if (key) removeEntry(tree, *key);
    } else if (const auto key = keyOf(parsing, item.place, item.text)) {
        addEntry(tree, *key, item.text.ends_with(L'\\')).cause = {};
    }
}

/// The only line of a section that holds something; nothing when there are more or none.
std::optional<Item> onlyItem(const Section& section) {
    std::optional<Item> only;
    for (const SectionLine& line : section.lines) {
        const std::wstring_view text = trimmed(line.text);
        if (text.empty()) continue;
        if (only) return std::nullopt;
        only = Item{text, {section.file, line.number}};
    }
    return only;
}

/// The lines as they stand, each ended by CR LF; those at the end that are blank are left out. A "|" at the
/// start of a line is dropped: behind it, a line may look like the heading of a section.
std::string textOf(const Section& section) {
    std::string text;
    std::size_t wanted = 0;
    for (const SectionLine& line : section.lines) {
        const bool isMarked = line.text.starts_with(L'|');
        text += host::toUtf8(isMarked ? line.text.substr(1) : line.text) + "\r\n";
        if (isMarked || !trimmed(line.text).empty()) wanted = text.size();
    }
    text.resize(wanted);
    return text;
}

/// "from = quota.cfg", with a name that stands beside the description.
std::optional<std::string> localNameOf(const Item& item) {
    Scanner scanner(item.text);
    if (!scanner.take(L"from") || !scanner.rest().starts_with(L'=')) return std::nullopt;
    return host::toUtf8(trimmed(scanner.rest().substr(1)));
}

void readContents(Parsing& parsing, const Section& section, FileContents& contents) {
    const auto only = onlyItem(section);
    if (only && isCause(*only)) {
        const auto line = causeLineOf(*only, parsing.mistakes);
        if (line) contents.cause = line->cause;
        return;
    }
    const auto name = only ? localNameOf(*only) : std::nullopt;
    if (!name) {
        contents.bytes = textOf(section);
        return;
    }
    std::string why;
    const std::string file = besideFile(section.file, *name);
    auto bytes = parsing.files.read(file, why);
    if (bytes) {
        contents.bytes = std::move(*bytes);
    } else {
        parsing.mistakes.add(only->place, file + " cannot be read: " + why);
    }
}

void parseVersionItem(Parsing& parsing, const Item& item) {
    auto& versions = parsing.machine.files.versions;
    if (isCause(item)) {
        const auto line = causeLineOf(item, parsing.mistakes);
        const auto key = line ? keyOf(parsing, item.place, line->what) : std::nullopt;
        if (key) versions[*key].cause = line->cause;
        return;
    }
    if (const auto removed = removedName(item)) {
        const auto key = keyOf(parsing, item.place, *removed);
        if (key) versions.erase(*key);
        return;
    }
    const std::size_t equals = item.text.rfind(L'=');
    const auto version = equals != std::wstring_view::npos
                             ? host::versionOf(trimmed(item.text.substr(equals + 1)), 65535)
                             : std::nullopt;
    if (!version) {
        parsing.mistakes.add(item.place, quoted(item.text) +
                                             " tells no version, expected one like "
                                             "C:\\Windows\\notepad.exe = 10.0.19041.1");
        return;
    }
    const auto key = keyOf(parsing, item.place, trimmed(item.text.substr(0, equals)));
    if (!key) return;
    ImageVersion& image = versions[*key];
    image.cause = {};
    const auto field = [&version](std::size_t index) {
        return static_cast<std::uint16_t>((*version)[index]);
    };
    image.version = {field(0), field(1), field(2), field(3)};
}

}  // namespace

void parseFiles(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseFileItem(parsing, item); });
}

void parseContents(Parsing& parsing, const Section& section) {
    const auto key = keyOf(parsing, {section.file, section.line}, section.argument);
    if (!key) return;
    FileTree& tree = parsing.machine.files;
    if (!tree.entries.contains(*key)) addEntry(tree, *key, false);
    FileContents contents;
    readContents(parsing, section, contents);
    tree.contents[*key] = std::move(contents);
}

void parseVersions(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseVersionItem(parsing, item); });
}

}  // namespace description
