#pragma once

/// Small matters of text.

#include <string>
#include <string_view>

#include "runtime/host/os.h"

namespace host::windows {

/// Empty where there is none.
inline std::wstring textOf(const wchar_t* text) {
    return text != nullptr ? text : L"";
}

/// `text` without blanks at its ends.
inline std::wstring trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return {};
    return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

/// Whether two names are the same to Windows.
inline bool equalIgnoringCase(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace host::windows
