#pragma once

/// Security identifiers as text, as Windows writes and reads them.

#include <optional>
#include <string>
#include <string_view>

#include "runtime/host/facts.h"

namespace host {

/// "S-1-5-32-544". An identifier authority of 2^32 or more is written in hexadecimal: "S-1-0x123456789ABC-1".
std::wstring sidText(const Sid& sid);

/// The SID that a text names, in capital or small letters; nothing when it names none: another revision than
/// 1, no sub-authority or too many, a number that is too large, anything else in front or behind.
std::optional<Sid> sidOf(std::wstring_view text);

/// Whether a text begins as SIDs do: who writes so means one.
bool looksLikeSid(std::wstring_view text);

}  // namespace host
