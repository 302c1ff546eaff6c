#pragma once

/// Numbers and versions as text.

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// A decimal number, nothing else; nothing when it is none or above `maximum`.
std::optional<std::uint64_t> numberOf(std::wstring_view text,
                                      std::uint64_t maximum = std::numeric_limits<std::uint64_t>::max());

/// The same for hexadecimal digits, in capital or small letters, without anything in front of them.
std::optional<std::uint64_t> hexNumberOf(std::wstring_view text,
                                         std::uint64_t maximum = std::numeric_limits<std::uint64_t>::max());

/// A version written with dots; compared number by number.
using DottedVersion = std::array<std::uint32_t, 4>;

/// "6.1.5.2": one to four numbers of at most `maximum`; those left out are 0. Nothing for any other text.
std::optional<DottedVersion> versionOf(std::wstring_view text, std::uint32_t maximum = 0xFFFFFFFFU);

/// "6.1.5.2"
std::wstring versionText(const DottedVersion& version);

}  // namespace host
