#pragma once

/// What a catalog is: one text for each message identifier, in one language.

#include <cstddef>

#include "catalog/conversion.h"
#include "catalog/inserts.h"

namespace catalog {

struct MessageText {
    unsigned int id;
    const wchar_t* text;  ///< a printf-style format
};

/// The texts of one language, ascending by identifier.
struct Catalog {
    const MessageText* texts;
    std::size_t count;
};

/// The catalog that this program was linked with. A program has that of one folder: `english/` or `empty/`.
const Catalog& linked();

/// The text of `id` in the linked catalog; null when it has none.
const wchar_t* textOf(unsigned int id);

/// The kind of insert that a conversion shows, as `MessageInserts` writes it; 0 for none.
constexpr char insertKindOf(conversion::Kind kind) {
    switch (kind) {
        case conversion::Kind::text: return 's';
        case conversion::Kind::character: return 'c';
        case conversion::Kind::unsignedNumber:
        case conversion::Kind::lowerHex:
        case conversion::Kind::upperHex: return 'u';
        default: return '\0';
    }
}

/// Whether the conversions of `text` are exactly `kinds` in their order, nothing else in it looks like a
/// conversion, and every unit stands alone (no unit above U+FFFF, which would not be a UTF-16 unit).
constexpr bool takesExactly(const wchar_t* text, const char* kinds) {
    for (const wchar_t* at = text; *at != L'\0';) {
        if ((static_cast<unsigned long>(*at) >> 16) != 0) return false;
        if (*at != L'%') {
            ++at;
            continue;
        }
        const conversion::Conversion conversion = conversion::parse(at);
        at += conversion.length;
        if (conversion.kind == conversion::Kind::percent) continue;
        if (*kinds == '\0' || insertKindOf(conversion.kind) != *kinds) return false;
        ++kinds;
    }
    return *kinds == '\0';
}

/// Whether `texts` has one text for each message, in the order of `messages`, with its inserts.
template <std::size_t count>
constexpr bool isComplete(const MessageText (&texts)[count]) {
    if (count != messageCount) return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (texts[i].id != messages[i].id || !takesExactly(texts[i].text, messages[i].kinds)) return false;
        if (i > 0 && texts[i].id <= texts[i - 1].id) return false;
    }
    return true;
}

}  // namespace catalog
