#include "runtime/admin/config_text.h"

#include "runtime/host/utf.h"

namespace {

bool isLineEnd(wchar_t unit) {
    return unit == L'\r' || unit == L'\n';
}

/// A control character would spoil reports and messages that show the text.
bool isControl(wchar_t unit) {
    return (unit < 0x20 && unit != L'\t') || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 ||
           unit == 0x2029;
}

void refuseControlCharacters(const std::wstring& text) {
    for (const wchar_t unit : text) {
        if (!isControl(unit)) continue;
        throw ConfigMistake{
            formatted(L"the control character U+%4.4X, expected text", static_cast<unsigned int>(unit))};
    }
}

}  // namespace

ConfigLines::ConfigLines(std::string_view bytes) : m_rest(bytes) {
    const auto takeMark = [this](std::string_view mark, Encoding encoding) {
        if (!m_rest.starts_with(mark)) return false;
        m_rest.remove_prefix(mark.size());
        m_encoding = encoding;
        return true;
    };
    takeMark("\xEF\xBB\xBF", Encoding::utf8) || takeMark("\xFF\xFE", Encoding::utf16LittleEndian) ||
        takeMark("\xFE\xFF", Encoding::utf16BigEndian);
}

/// The unit at a byte position; all its bytes are there.
wchar_t ConfigLines::unitAt(std::string_view bytes, std::size_t at) const {
    const auto byte = [bytes](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    switch (m_encoding) {
        case Encoding::utf16LittleEndian: return static_cast<wchar_t>(byte(at) | byte(at + 1) << 8);
        case Encoding::utf16BigEndian: return static_cast<wchar_t>(byte(at) << 8 | byte(at + 1));
        default: return static_cast<wchar_t>(byte(at));
    }
}

std::string_view ConfigLines::takeLine() {
    const std::size_t whole = m_rest.size() - m_rest.size() % unitSize();
    std::size_t end = 0;
    while (end < whole && !isLineEnd(unitAt(m_rest, end)))
        end += unitSize();
    if (end == whole) {
        const std::string_view last = m_rest;
        m_rest = {};
        return last;
    }
    std::size_t next = end + unitSize();
    if (unitAt(m_rest, end) == L'\r' && next < whole && unitAt(m_rest, next) == L'\n') next += unitSize();
    const std::string_view line = m_rest.substr(0, end);
    m_rest.remove_prefix(next);
    return line;
}

std::wstring ConfigLines::decoded(std::string_view bytes) const {
    if (m_encoding == Encoding::utf8) {
        std::wstring text = host::fromUtf8(bytes);
        if (host::toUtf8(text) == bytes) return text;
        throw ConfigMistake{L"the text is not well-formed, expected UTF-8, or UTF-16 with a byte order mark"};
    }
    std::wstring text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        text += unitAt(bytes, at);
    if (bytes.size() % 2 == 0 && host::fromUtf8(host::toUtf8(text)) == text) return text;
    throw ConfigMistake{L"the text is not well-formed, expected UTF-16 as the byte order mark says"};
}

bool ConfigLines::next(ConfigLine& line) {
    if (m_rest.empty()) return false;
    ++line.number;
    line.text = decoded(takeLine());
    refuseControlCharacters(line.text);
    return true;
}

CString quotedText(std::wstring_view text) {
    constexpr std::size_t longest = 60;
    const bool isShortened = text.size() > longest;
    const bool splitsCharacter =
        isShortened && host::isHighSurrogate(static_cast<char32_t>(text[longest - 1]));
    std::wstring quoted = L"\"";
    quoted += text.substr(0, longest - (splitsCharacter ? 1 : 0));
    quoted += isShortened ? L"...\"" : L"\"";
    return CString(std::move(quoted));
}
