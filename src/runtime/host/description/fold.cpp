#include "runtime/host/description/fold.h"

#include <algorithm>

namespace description {

namespace {

wchar_t shifted(wchar_t unit, int distance) {
    return static_cast<wchar_t>(unit + distance);
}

/// Blocks in which capital and small letter stand side by side, the capital on an even number.
bool isEvenPair(wchar_t unit) {
    return (unit >= 0x0100 && unit <= 0x0137 && unit != 0x0130 && unit != 0x0131) ||
           (unit >= 0x014A && unit <= 0x0177) || (unit >= 0x0460 && unit <= 0x0481) ||
           (unit >= 0x048A && unit <= 0x04BF) || (unit >= 0x1E00 && unit <= 0x1E95);
}

/// The same with the capital on an odd number.
bool isOddPair(wchar_t unit) {
    return (unit >= 0x0139 && unit <= 0x0148) || (unit >= 0x0179 && unit <= 0x017E);
}

wchar_t foldedUnit(wchar_t unit) {
    if (unit < 0x80) return unit >= L'A' && unit <= L'Z' ? shifted(unit, 0x20) : unit;
    if (unit >= 0x00C0 && unit <= 0x00DE && unit != 0x00D7) return shifted(unit, 0x20);
    if (unit == 0x0178) return 0x00FF;
    if (isEvenPair(unit)) return static_cast<wchar_t>(unit | 1);
    if (isOddPair(unit)) return unit % 2 == 1 ? shifted(unit, 1) : unit;
    if (unit >= 0x0391 && unit <= 0x03AB && unit != 0x03A2) return shifted(unit, 0x20);
    if (unit >= 0x0410 && unit <= 0x042F) return shifted(unit, 0x20);
    if (unit >= 0x0400 && unit <= 0x040F) return shifted(unit, 0x50);
    return unit;
}

}  // namespace

std::wstring folded(std::wstring_view text) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), foldedUnit);
    return result;
}

bool equalFolded(std::wstring_view left, std::wstring_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t one, wchar_t other) { return foldedUnit(one) == foldedUnit(other); });
}

}  // namespace description
