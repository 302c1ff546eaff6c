#include "runtime/host/description/section.h"
#include "runtime/host/letter_case.h"

/// [registry], and registry exports as `reg export` writes them.

namespace description {

namespace {

/// The value of a hexadecimal digit, or -1.
int hexDigit(wchar_t unit) {
    if (unit >= L'0' && unit <= L'9') return static_cast<int>(unit - L'0');
    if (unit >= L'a' && unit <= L'f') return static_cast<int>(unit - L'a') + 10;
    if (unit >= L'A' && unit <= L'F') return static_cast<int>(unit - L'A') + 10;
    return -1;
}

/// A hexadecimal number of one to `most` digits.
std::optional<std::uint32_t> hexNumber(std::wstring_view text, std::size_t most) {
    if (text.empty() || text.size() > most) return std::nullopt;
    std::uint32_t value = 0;
    for (const wchar_t unit : text) {
        const int digit = hexDigit(unit);
        if (digit < 0) return std::nullopt;
        value = value << 4U | static_cast<std::uint32_t>(digit);
    }
    return value;
}

/// "61,00,62,00".
std::optional<std::string> hexBytes(std::wstring_view text) {
    std::string bytes;
    text = trimmed(text);
    while (!text.empty()) {
        const std::size_t comma = text.find(L',');
        const auto byte = hexNumber(trimmed(text.substr(0, comma)), 2);
        if (!byte) return std::nullopt;
        bytes += static_cast<char>(static_cast<unsigned char>(*byte));
        text = comma == std::wstring_view::npos ? std::wstring_view() : trimmed(text.substr(comma + 1));
    }
    return bytes;
}

std::string littleEndian(std::uint32_t number) {
    std::string bytes;
    for (unsigned int shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(static_cast<unsigned char>((number >> shift) & 0xFFU));
    }
    return bytes;
}

/// A text as the registry stores it.
std::string storedText(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(2 * text.size() + 2);
    for (const wchar_t unit : text)
        bytes += littleEndian(static_cast<std::uint32_t>(unit)).substr(0, 2);
    return bytes.append(2, '\0');
}

/// The path below HKEY_LOCAL_MACHINE: `isMachine` is false for keys of the other hives, of which no program
/// here asks.
struct KeyPath {
    bool isMachine = false;
    std::wstring path;  ///< folded
};

std::optional<KeyPath> keyPathOf(std::wstring_view text) {
    static constexpr std::wstring_view machineHives[] = {L"HKEY_LOCAL_MACHINE", L"HKLM"};
    static constexpr std::wstring_view otherHives[] = {L"HKEY_CLASSES_ROOT",
                                                       L"HKEY_CURRENT_USER",
                                                       L"HKEY_USERS",
                                                       L"HKEY_CURRENT_CONFIG",
                                                       L"HKCR",
                                                       L"HKCU",
                                                       L"HKU",
                                                       L"HKCC"};
    const std::size_t end = text.find(L'\\');
    const std::wstring_view hive = text.substr(0, end);
    KeyPath result;
    if (end != std::wstring_view::npos) result.path = host::folded(text.substr(end + 1));
    while (result.path.ends_with(L'\\'))
        result.path.pop_back();
    for (const std::wstring_view known : machineHives) {
        if (!host::equalIgnoringCase(hive, known)) continue;
        result.isMachine = true;
        return result;
    }
    for (const std::wstring_view known : otherHives) {
        if (host::equalIgnoringCase(hive, known)) return result;
    }
    return std::nullopt;
}

/// Makes a key and those above it.
RegistryKey& makeKey(Registry& registry, const std::wstring& path) {
    for (std::size_t end = path.rfind(L'\\'); end != std::wstring::npos && end > 0;
         end = path.rfind(L'\\', end - 1)) {
        if (!registry.try_emplace(path.substr(0, end)).second) break;
    }
    return registry[path];
}

/// Takes a key out, with those below it.
void removeKey(Registry& registry, const std::wstring& path) {
    if (path.empty()) return registry.clear();
    registry.erase(path);
    registry.erase(registry.lower_bound(path + L"\\"), registry.lower_bound(path + L"]"));
}

class RegistryParser {
public:
    RegistryParser(Parsing& parsing, const Section& section) : m_parsing(parsing), m_section(section) {}

    void parse() {
        for (; m_next < m_section.lines.size(); ++m_next) {
            m_place = {m_section.file, m_section.lines[m_next].number};
            parseLine(trimmed(m_section.lines[m_next].text));
        }
    }

private:
    void mistake(const std::string& text) { m_parsing.mistakes.add(m_place, text); }

    void parseLine(std::wstring_view text) {
        if (text.empty() || text[0] == L'#' || text[0] == L';') return;
        if (text.starts_with(L"Windows Registry Editor Version") || text == L"REGEDIT4") return;
        if (text[0] == L'[') return parseKey(text);
        if (text[0] == L'"' || text[0] == L'@') return parseValue(text);
        mistake(quoted(text) +
                " is neither a key nor a value, expected [HKEY_LOCAL_MACHINE\\...] or \"NAME\"=DATA");
    }

    /// What may follow a finished key or value: nothing, or a comment.
    bool isEnd(std::wstring_view rest) {
        rest = trimmed(rest);
        if (rest.empty() || rest[0] == L'#' || rest[0] == L';') return true;
        mistake(quoted(rest) + " follows where the line should end");
        return false;
    }

    void parseKey(std::wstring_view text) {
        m_key = nullptr;
        m_skips = true;
        const std::size_t close = text.rfind(L']');
        if (close == std::wstring_view::npos) return mistake(quoted(text) + " has no closing bracket");
        std::wstring_view name = trimmed(text.substr(1, close - 1));
        const bool removes = name.starts_with(L'-');
        if (removes) name.remove_prefix(1);
        const auto path = keyPathOf(name);
        if (!path) return mistake(quoted(name) + " is no key, expected one below HKEY_LOCAL_MACHINE");
        Scanner scanner(text.substr(close + 1));
        const auto cause = scanner.cause();
        if (!isEnd(scanner.rest()) || !path->isMachine) return;
        Registry& registry = m_parsing.machine.registry;
        if (removes) return removeKey(registry, path->path);
        m_key = &makeKey(registry, path->path);
        m_skips = false;
        if (cause) m_key->cause = *cause;
    }

    void parseValue(std::wstring_view text) {
        std::wstring name;
        if (text[0] == L'@') {
            text.remove_prefix(1);
        } else if (!takeQuoted(text, name, false)) {
            return;
        }
        text = trimmed(text);
        if (!text.starts_with(L'='))
            return mistake("no \"=\" behind the name of a value, expected \"NAME\"=DATA");
        RegistryData data;
        const std::wstring_view source = trimmed(text.substr(1));
        const bool removes = source.starts_with(L'-');
        if (removes ? !isEnd(source.substr(1)) : !readData(source, data)) return;
        if (m_key == nullptr) {
            if (!m_skips) mistake("a value without a key, expected [HKEY_LOCAL_MACHINE\\...] before it");
            return;
        }
        if (removes) {
            m_key->values.erase(host::folded(name));
        } else {
            m_key->values[host::folded(name)] = std::move(data);
        }
    }

    /// Takes a text in quotes off the front of `text`. With `mayContinue`, it may go on in the lines that
    /// follow, as an export writes a text that holds line ends.
    bool takeQuoted(std::wstring_view& text, std::wstring& result, bool mayContinue) {
        std::size_t at = 1;
        std::size_t line = m_next;
        for (;;) {
            for (; at < text.size() && text[at] != L'"'; ++at) {
                const bool escapes = text[at] == L'\\' && at + 1 < text.size();
                result += escapes ? text[++at] : text[at];
            }
            if (at < text.size()) {
                text.remove_prefix(at + 1);
                m_next = line;
                return true;
            }
            if (!mayContinue || ++line >= m_section.lines.size()) break;
            text = m_section.lines[line].text;
            at = 0;
            result += L"\r\n";
        }
        mistake("a quote without its end");
        return false;
    }

    bool readData(std::wstring_view text, RegistryData& data) {
        if (text.starts_with(L'"')) {
            std::wstring value;
            if (!takeQuoted(text, value, true) || !isEnd(text)) return false;
            data.type = registryText;
            data.bytes = storedText(value);
            return true;
        }
        Scanner scanner(text);
        if (const auto cause = scanner.cause()) {
            data.cause = *cause;
            return isEnd(scanner.rest());
        }
        if (host::equalIgnoringCase(text.substr(0, 6), L"dword:")) return readNumber(text.substr(6), data);
        if (host::equalIgnoringCase(text.substr(0, 3), L"hex")) return readHex(text.substr(3), data);
        mistake(quoted(text) +
                " is no data, expected a text in quotes, dword:, hex:, hex(TYPE):, -, refused or error CODE");
        return false;
    }

    bool readNumber(std::wstring_view text, RegistryData& data) {
        Scanner scanner(text);
        const std::wstring_view digits = scanner.word();
        const auto number = hexNumber(digits, 8);
        if (!number) {
            mistake(quoted(digits) + " is no number, expected one to eight hexadecimal digits");
            return false;
        }
        data.type = registryNumber;
        data.bytes = littleEndian(*number);
        return isEnd(scanner.rest());
    }

    /// What follows "hex": ":61,00", "(2):61,00".
    bool readHex(std::wstring_view text, RegistryData& data) {
        const std::size_t colon = text.find(L':');
        const std::wstring_view type = trimmed(text.substr(0, colon));
        if (!type.empty()) {
            const bool inBrackets = type.size() > 2 && type.front() == L'(' && type.back() == L')';
            const auto number = inBrackets ? hexNumber(type.substr(1, type.size() - 2), 8) : std::nullopt;
            if (number) data.type = *number;
            if (!number) {
                mistake(quoted(type) + " is no type, expected one like hex(2):");
                return false;
            }
        }
        const auto bytes =
            colon == std::wstring_view::npos ? std::nullopt : hexBytes(joinedLines(text.substr(colon + 1)));
        if (!bytes) {
            mistake("no bytes behind \"hex\", expected pairs of hexadecimal digits with commas between them");
            return false;
        }
        data.bytes = *bytes;
        return true;
    }

    /// The text with the lines that follow a "\" at its end.
    std::wstring joinedLines(std::wstring_view first) {
        std::wstring text(trimmed(first));
        while (text.ends_with(L'\\') && m_next + 1 < m_section.lines.size()) {
            text.pop_back();
            text += trimmed(m_section.lines[++m_next].text);
        }
        return text;
    }

    Parsing& m_parsing;
    const Section& m_section;
    Place m_place;
    std::size_t m_next = 0;        ///< the line being read
    RegistryKey* m_key = nullptr;  ///< the key whose values follow
    bool m_skips = false;          ///< values of a key that is not kept, or that was a mistake
};

}  // namespace

void parseRegistry(Parsing& parsing, const Section& section) {
    RegistryParser(parsing, section).parse();
}

}  // namespace description
