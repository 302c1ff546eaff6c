#include "runtime/base/CString.h"

namespace {

bool between(wchar_t unit, wchar_t first, wchar_t last) {
    return unit >= first && unit <= last;
}

/// Blocks in which a capital letter and its small letter stand side by side, the capital on an even unit.
bool inEvenPairs(wchar_t unit) {
    return between(unit, 0x0100, 0x012F) || between(unit, 0x0132, 0x0137) || between(unit, 0x014A, 0x0177) ||
           between(unit, 0x0460, 0x0481) || between(unit, 0x048A, 0x04BF) || between(unit, 0x04D0, 0x052F) ||
           between(unit, 0x1E00, 0x1E95) || between(unit, 0x1EA0, 0x1EFF);
}

/// The same with the capital on an odd unit.
bool inOddPairs(wchar_t unit) {
    return between(unit, 0x0139, 0x0148) || between(unit, 0x0179, 0x017E) || between(unit, 0x04C1, 0x04CE);
}

wchar_t lower(wchar_t unit) {
    const auto shifted = [unit](int by) { return static_cast<wchar_t>(unit + by); };
    if (unit < 0x80) return between(unit, L'A', L'Z') ? shifted(0x20) : unit;
    if (between(unit, 0x00C0, 0x00DE) && unit != 0x00D7) return shifted(0x20);
    if (unit == 0x0178) return 0x00FF;
    if (between(unit, 0x0391, 0x03AB) && unit != 0x03A2) return shifted(0x20);
    if (between(unit, 0x0410, 0x042F)) return shifted(0x20);
    if (between(unit, 0x0400, 0x040F)) return shifted(0x50);
    if (inEvenPairs(unit)) return static_cast<wchar_t>(unit | 1);
    if (inOddPairs(unit)) return unit % 2 == 1 ? shifted(1) : unit;
    return unit;
}

wchar_t upper(wchar_t unit) {
    const auto shifted = [unit](int by) { return static_cast<wchar_t>(unit + by); };
    if (unit < 0x80) return between(unit, L'a', L'z') ? shifted(-0x20) : unit;
    if (between(unit, 0x00E0, 0x00FE) && unit != 0x00F7) return shifted(-0x20);
    if (unit == 0x00FF) return 0x0178;
    if (between(unit, 0x03B1, 0x03CB) && unit != 0x03C2) return shifted(-0x20);
    if (between(unit, 0x0430, 0x044F)) return shifted(-0x20);
    if (between(unit, 0x0450, 0x045F)) return shifted(-0x50);
    if (inEvenPairs(unit)) return unit % 2 == 1 ? shifted(-1) : unit;
    if (inOddPairs(unit)) return unit % 2 == 0 ? shifted(-1) : unit;
    return unit;
}

}  // namespace

FormatArgument::FormatArgument(const CString& text) : m_kind(Kind::text), m_text(text) {}

CString::CString(const char* narrow) {
    for (; narrow != nullptr && *narrow != '\0'; ++narrow) {
        m_units += static_cast<wchar_t>(static_cast<unsigned char>(*narrow));
    }
}

int CString::CompareNoCase(const CString& other) const {
    CString left = *this;
    CString right = other;
    left.MakeLower();
    right.MakeLower();
    return left.Compare(right);
}

void CString::MakeLower() {
    for (wchar_t& unit : m_units)
        unit = lower(unit);
}

void CString::MakeUpper() {
    for (wchar_t& unit : m_units)
        unit = upper(unit);
}
