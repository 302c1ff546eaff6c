#include "runtime/host/utf.h"

namespace host {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t lastCharacter = 0x10FFFF;

char byteOf(char32_t bits) {
    return static_cast<char>(static_cast<unsigned char>(bits));
}

/// What the first byte of a sequence promises.
struct Lead {
    unsigned int trailing;  ///< bytes that follow; 0 also for a byte that begins nothing
    char32_t bits;          ///< `replacement` for a byte that begins nothing
};

Lead leadOf(unsigned char byte) {
    if (byte == 0) return {0, replacement};
    if (byte < 0x80) return {0, byte};
    if (byte >= 0xC2 && byte <= 0xDF) return {1, byte & 0x1FU};
    if (byte >= 0xE0 && byte <= 0xEF) return {2, byte & 0x0FU};
    if (byte >= 0xF0 && byte <= 0xF4) return {3, byte & 0x07U};
    return {0, replacement};
}

/// Whether `trailing` may be the second byte behind `lead`: keeps out overlong forms, surrogates and what
/// lies above the last character, so that each ill-formed byte is replaced by itself and none of the text
/// behind is lost.
bool fitsSecond(unsigned char lead, unsigned char trailing) {
    switch (lead) {
        case 0xE0: return trailing >= 0xA0;
        case 0xED: return trailing <= 0x9F;
        case 0xF0: return trailing >= 0x90;
        case 0xF4: return trailing <= 0x8F;
        default: return true;
    }
}

char32_t decodeNext(std::string_view bytes, std::size_t& at) {
    const auto first = static_cast<unsigned char>(bytes[at++]);
    const Lead lead = leadOf(first);
    char32_t character = lead.bits;
    for (unsigned int count = 0; count < lead.trailing; ++count) {
        if (at == bytes.size()) return replacement;
        const auto next = static_cast<unsigned char>(bytes[at]);
        if ((next & 0xC0U) != 0x80 || (count == 0 && !fitsSecond(first, next))) return replacement;
        character = (character << 6U) | (next & 0x3FU);
        ++at;
    }
    return character;
}

void appendUnits(std::wstring& units, char32_t character) {
    if (character < 0x10000) {
        units += static_cast<wchar_t>(character);
        return;
    }
    const char32_t offset = character - 0x10000;
    units += static_cast<wchar_t>(0xD800 + (offset >> 10U));
    units += static_cast<wchar_t>(0xDC00 + (offset & 0x3FFU));
}

}  // namespace

char32_t nextCharacter(std::wstring_view units, std::size_t& at) noexcept {
    const auto unit = static_cast<char32_t>(units[at++]);
    if (unit > lastCharacter || isLowSurrogate(unit)) return replacement;
    if (!isHighSurrogate(unit)) return unit;
    if (at == units.size()) return replacement;
    const auto low = static_cast<char32_t>(units[at]);
    if (!isLowSurrogate(low)) return replacement;
    ++at;
    return 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
}

unsigned int encodeUtf8(char32_t character, char* bytes) noexcept {
    if (character < 0x80) {
        bytes[0] = byteOf(character);
        return 1;
    }
    if (character < 0x800) {
        bytes[0] = byteOf(0xC0 | (character >> 6U));
        bytes[1] = byteOf(0x80 | (character & 0x3FU));
        return 2;
    }
    if (character < 0x10000) {
        bytes[0] = byteOf(0xE0 | (character >> 12U));
        bytes[1] = byteOf(0x80 | ((character >> 6U) & 0x3FU));
        bytes[2] = byteOf(0x80 | (character & 0x3FU));
        return 3;
    }
    bytes[0] = byteOf(0xF0 | (character >> 18U));
    bytes[1] = byteOf(0x80 | ((character >> 12U) & 0x3FU));
    bytes[2] = byteOf(0x80 | ((character >> 6U) & 0x3FU));
    bytes[3] = byteOf(0x80 | (character & 0x3FU));
    return 4;
}

std::string toUtf8(std::wstring_view units) {
    std::string bytes;
    bytes.reserve(units.size());
    char one[4];
    for (std::size_t at = 0; at < units.size();) {
        const unsigned int length = encodeUtf8(nextCharacter(units, at), one);
        bytes.append(one, length);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring units;
    units.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();)
        appendUnits(units, decodeNext(bytes, at));
    return units;
}

}  // namespace host
