/// Any text as a format, any text as an argument: nothing crashes, and an argument is never a format.

#include <cstddef>
#include <cstdint>
#include <string>

#include "runtime/base/format.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring format;
    std::wstring argument;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const auto unit = static_cast<wchar_t>(data[i] | data[i + 1] << 8);
        if (unit == L'\0') continue;
        (i < size / 2 ? format : argument) += unit;
    }
    formatText(format.c_str(), argument.c_str(), 42U, -7, L'x', argument.c_str());
    if (formatText(L"%s", argument.c_str()) != argument) __builtin_trap();
    return 0;
}
