#pragma once

/// Version numbers written with dots.

#include <array>
#include <cstdint>
#include <optional>

#include "runtime/base/CString.h"

/// Four numbers, compared in order.
using DottedVersion = std::array<std::uint32_t, 4>;

/// Reads "6", "6.1", ... "6.1.5.2"; numbers that are not given are 0. Blanks around it are allowed. Nothing
/// for any other text and for a number above 32 bits.
std::optional<DottedVersion> parseDottedVersion(const CString& text);

/// "6.1.5.2"
CString toText(const DottedVersion& version);
