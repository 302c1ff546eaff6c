#include "runtime/base/format.h"

#include <algorithm>
#include <cwchar>

#include "catalog/conversion.h"

using conversion::Conversion;
using conversion::Kind;

FormatArgument::FormatArgument(const wchar_t* text) : m_kind(Kind::text), m_text(text ? text : L"(null)") {}

namespace {

std::wstring digits(std::uint64_t number, unsigned base, bool upper) {
    const wchar_t* symbols = upper ? L"0123456789ABCDEF" : L"0123456789abcdef";
    std::wstring reversed;
    do {
        reversed += symbols[number % base];
        number /= base;
    } while (number != 0);
    return {reversed.rbegin(), reversed.rend()};
}

std::wstring signOf(const Conversion& conversion, const FormatArgument& argument) {
    if (argument.negative()) return L"-";
    if (conversion.kind != Kind::signedNumber) return L"";
    if (conversion.plusSign) return L"+";
    return conversion.blankSign ? L" " : L"";
}

/// A negative number in an unsigned conversion shows as its 32-bit pattern, as it does on Windows.
std::wstring showNumber(const Conversion& conversion, const FormatArgument& argument) {
    const bool hexadecimal = conversion.kind == Kind::lowerHex || conversion.kind == Kind::upperHex;
    const bool asPattern = argument.negative() && (hexadecimal || conversion.kind == Kind::unsignedNumber);
    const std::uint64_t number =
        asPattern ? static_cast<std::uint32_t>(0U - argument.number()) : argument.number();
    std::wstring body = digits(number, hexadecimal ? 16 : 10, conversion.kind == Kind::upperHex);
    const std::wstring sign = asPattern ? L"" : signOf(conversion, argument);
    std::wstring prefix = sign;
    if (hexadecimal && conversion.alternate && number != 0) {
        prefix += conversion.kind == Kind::upperHex ? L"0X" : L"0x";
    }
    std::size_t least = conversion.precision > 0 ? static_cast<std::size_t>(conversion.precision) : 0;
    if (conversion.precision < 0 && conversion.zeroPadded && !conversion.leftAligned) {
        const auto width = static_cast<std::size_t>(conversion.width);
        least = width > prefix.size() ? width - prefix.size() : 0;
    }
    if (body.size() < least) body.insert(0, least - body.size(), L'0');
    return prefix + body;
}

std::wstring show(const Conversion& conversion, const FormatArgument& argument) {
    switch (argument.kind()) {
        case FormatArgument::Kind::number: return showNumber(conversion, argument);
        case FormatArgument::Kind::character:
            // A text never holds a NUL.
            return std::wstring(argument.number() == 0 ? 0 : 1, static_cast<wchar_t>(argument.number()));
        default: break;
    }
    const std::size_t length = std::wcslen(argument.text());
    const bool cut = conversion.kind == Kind::text && conversion.precision >= 0;
    return {argument.text(), cut ? std::min(length, static_cast<std::size_t>(conversion.precision)) : length};
}

void appendPadded(std::wstring& out, const Conversion& conversion, const std::wstring& body) {
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::size_t padding = width > body.size() ? width - body.size() : 0;
    if (!conversion.leftAligned) out.append(padding, L' ');
    out += body;
    if (conversion.leftAligned) out.append(padding, L' ');
}

}  // namespace

std::wstring formatWith(const wchar_t* format, const FormatArgument* arguments, std::size_t count) {
    std::wstring out;
    std::size_t used = 0;
    for (const wchar_t* at = format; *at != L'\0';) {
        if (*at != L'%') {
            const wchar_t* end = at;
            while (*end != L'\0' && *end != L'%')
                ++end;
            out.append(at, end);
            at = end;
            continue;
        }
        const Conversion conversion = conversion::parse(at);
        if (conversion.kind == Kind::percent) {
            out += L'%';
            at += conversion.length;
        } else if (conversion.kind == Kind::none || used == count) {
            // Not ours to interpret: the '%' is copied and what follows it is ordinary text.
            out += *at++;
        } else {
            appendPadded(out, conversion, show(conversion, arguments[used++]));
            at += conversion.length;
        }
    }
    return out;
}

std::wstring plainText(const FormatArgument& argument) {
    Conversion plain;
    plain.kind = Kind::signedNumber;
    return show(plain, argument);
}
