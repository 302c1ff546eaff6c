#pragma once

/// Small matters of text.

#include <string>
#include <string_view>

namespace host {

/// The text of a pointer that may be null.
inline std::wstring textOrEmpty(const wchar_t* text) {
    return text != nullptr ? text : L"";
}

/// `text` without the blanks at its ends; `blanks` says which units are some.
inline std::wstring_view trimmed(std::wstring_view text, std::wstring_view blanks = L" \t") {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

/// The text in one line that steers no terminal: a blank for each control character and line separator, and
/// no blanks at its end. Labels of disks and texts of other programs may hold anything.
inline std::wstring inOneLine(std::wstring text) {
    for (wchar_t& unit : text) {
        const bool isControl = unit < L' ' || (unit >= 0x7F && unit < 0xA0);
        if (isControl || unit == 0x2028 || unit == 0x2029) unit = L' ';
    }
    text.resize(text.find_last_not_of(L' ') + 1);
    return text;
}

}  // namespace host
