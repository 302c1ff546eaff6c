#pragma once

/// How a code of the operating system's stands in texts.

#include <cstdint>
#include <string>

#include "runtime/base/format.h"
#include "runtime/host/host.h"

/// ", system error 5: Access is denied."; empty for no code. From 0x80000000 on, codes are written as
/// everybody knows them: in hexadecimal.
inline std::wstring systemErrorPhrase(std::uint32_t code) {
    if (code == 0) return {};
    const wchar_t* const form = code < 0x80000000U ? L", system error %u: " : L", system error 0x%8.8X: ";
    return formatText(form, code) + host::systemErrorText(code);
}
