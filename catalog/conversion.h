#pragma once

/// The conversions of a printf-style format, read by one parser that serves both the formatter at run time
/// and the catalog's check when it is compiled.

#include <cstddef>

namespace conversion {

/// What a conversion shows. `none`: the text at this place is no conversion that this program knows.
enum class Kind { none, percent, text, character, signedNumber, unsignedNumber, lowerHex, upperHex };

struct Conversion {
    Kind kind = Kind::none;
    bool leftAligned = false;
    bool zeroPadded = false;
    bool plusSign = false;
    bool blankSign = false;
    bool alternate = false;
    int width = 0;
    int precision = -1;      ///< -1: none given
    std::size_t length = 0;  ///< units from the '%' to the last unit of the conversion
};

/// Widths and precisions above this make the conversion unknown: it is then copied as it stands.
inline constexpr int maximumWidth = 4096;

namespace detail {

constexpr bool isDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// Reads a decimal number; leaves `at` behind it. Returns -1 when it is above `maximumWidth`.
constexpr int readNumber(const wchar_t*& at) {
    int value = 0;
    bool tooLarge = false;
    for (; isDigit(*at); ++at) {
        value = value * 10 + static_cast<int>(*at - L'0');
        if (value > maximumWidth) {
            tooLarge = true;
            value = maximumWidth;
        }
    }
    return tooLarge ? -1 : value;
}

constexpr const wchar_t* readFlags(const wchar_t* at, Conversion& found) {
    for (;; ++at) {
        switch (*at) {
            case L'-': found.leftAligned = true; break;
            case L'0': found.zeroPadded = true; break;
            case L'+': found.plusSign = true; break;
            case L' ': found.blankSign = true; break;
            case L'#': found.alternate = true; break;
            default: return at;
        }
    }
}

constexpr const wchar_t* skipLengthModifier(const wchar_t* at) {
    while (*at == L'h' || *at == L'l' || *at == L'w')
        ++at;
    return at;
}

constexpr Kind kindOf(wchar_t letter) {
    switch (letter) {
        case L's': return Kind::text;
        case L'c': return Kind::character;
        case L'd':
        case L'i': return Kind::signedNumber;
        case L'u': return Kind::unsignedNumber;
        case L'x': return Kind::lowerHex;
        case L'X': return Kind::upperHex;
        default: return Kind::none;
    }
}

}  // namespace detail

/// The conversion that begins at `percent` (which points at a '%'). `kind` is `none` where the text is no
/// known conversion: there is no "%n", no "*", no floating point.
constexpr Conversion parse(const wchar_t* percent) {
    Conversion found;
    const wchar_t* at = percent + 1;
    if (*at == L'%') {
        found.kind = Kind::percent;
        found.length = 2;
        return found;
    }
    at = detail::readFlags(at, found);
    found.width = detail::readNumber(at);
    if (*at == L'.') {
        ++at;
        found.precision = detail::readNumber(at);
        if (found.precision < 0) return {};
    }
    at = detail::skipLengthModifier(at);
    found.kind = found.width < 0 ? Kind::none : detail::kindOf(*at);
    found.length = static_cast<std::size_t>(at - percent) + 1;
    return found.kind == Kind::none ? Conversion{} : found;
}

}  // namespace conversion
