#pragma once

/// Letter case as Windows has it for the names of files, keys, accounts and services: unit by unit, the same
/// in every locale.

#include <cstdint>
#include <string>
#include <string_view>

namespace host {

wchar_t upperCase(wchar_t unit) noexcept;
wchar_t lowerCase(wchar_t unit) noexcept;

/// The text in small letters: equal for texts that Windows takes for the same name.
std::wstring folded(std::wstring_view text);

bool equalIgnoringCase(std::wstring_view left, std::wstring_view right) noexcept;

/// A hash that is equal for texts that are equal ignoring case; `before` is the hash of what stands before.
inline constexpr std::uint64_t emptyHash = 0xCBF29CE484222325U;
std::uint64_t hashIgnoringCase(std::wstring_view text, std::uint64_t before = emptyHash) noexcept;

}  // namespace host
