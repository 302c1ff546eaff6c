#pragma once

/// UTF-8 and UTF-16. Everything ill-formed becomes U+FFFD; nothing is refused.

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// The two halves of a character above U+FFFF.
constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The bytes of UTF-16 units held in `wchar_t` (values above U+FFFF, where `wchar_t` is wider, are taken as
/// code points). A surrogate without its partner becomes U+FFFD.
std::string toUtf8(std::wstring_view units);

/// The units of UTF-8 bytes; characters above U+FFFF become two. A NUL byte becomes U+FFFD too, so that the
/// result can be handed on as a text pointer.
std::wstring fromUtf8(std::string_view bytes);

/// The character of `units` that begins at `at`, which must lie below the size; moves `at` behind it. Never
/// allocates.
char32_t nextCharacter(std::wstring_view units, std::size_t& at) noexcept;

/// Writes the one to four bytes of a character that `nextCharacter` gave, and returns how many.
unsigned int encodeUtf8(char32_t character, char* bytes) noexcept;

}  // namespace host
