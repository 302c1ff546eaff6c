#include "runtime/host/letter_case.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "runtime/host/letter_case_table.h"

namespace host {

namespace {

using letter_case::Range;
using letter_case::ranges;

constexpr wchar_t lastAscii = 0x7F;
constexpr std::size_t rangeCount = std::size(ranges);

constexpr int firstCapital(const Range& range) {
    return range.first + range.distance;
}

/// The same ranges in the order of their capitals.
constexpr auto byCapital = [] {
    std::array<Range, rangeCount> sorted{};
    std::copy(std::begin(ranges), std::end(ranges), sorted.begin());
    std::sort(sorted.begin(), sorted.end(),
              [](const Range& left, const Range& right) { return firstCapital(left) < firstCapital(right); });
    return sorted;
}();

/// The range behind whose begin, moved by `moved`, `unit` stands; its distance, or 0 for a unit that is not
/// in it.
template <class Ranges, class Moved>
int distanceIn(const Ranges& sorted, wchar_t unit, Moved moved) noexcept {
    const auto value = static_cast<long>(unit);
    const auto next = std::upper_bound(
        std::begin(sorted), std::end(sorted), value,
        [&](long wanted, const Range& range) { return wanted < range.first + moved(range); });
    if (next == std::begin(sorted)) return 0;
    const Range& range = *std::prev(next);
    const long offset = value - range.first - moved(range);
    return offset <= range.last - range.first && offset % range.step == 0 ? range.distance : 0;
}

bool isBetween(wchar_t unit, wchar_t first, wchar_t last) noexcept {
    return unit >= first && unit <= last;
}

}  // namespace

wchar_t upperCase(wchar_t unit) noexcept {
    constexpr int toCapital = L'A' - L'a';
    if (unit <= lastAscii) return static_cast<wchar_t>(isBetween(unit, L'a', L'z') ? unit + toCapital : unit);
    return static_cast<wchar_t>(unit + distanceIn(ranges, unit, [](const Range&) { return 0; }));
}

wchar_t lowerCase(wchar_t unit) noexcept {
    constexpr int toSmall = L'a' - L'A';
    if (unit <= lastAscii) return static_cast<wchar_t>(isBetween(unit, L'A', L'Z') ? unit + toSmall : unit);
    return static_cast<wchar_t>(unit -
                                distanceIn(byCapital, unit, [](const Range& r) { return r.distance; }));
}

std::wstring folded(std::wstring_view text) {
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowerCase);
    return result;
}

bool equalIgnoringCase(std::wstring_view left, std::wstring_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](wchar_t one, wchar_t other) {
        return one == other || lowerCase(one) == lowerCase(other);
    });
}

std::uint64_t hashIgnoringCase(std::wstring_view text, std::uint64_t before) noexcept {
    constexpr std::uint64_t prime = 0x100000001B3U;
    std::uint64_t hash = before;
    for (const wchar_t unit : text)
        hash = (hash ^ static_cast<std::uint32_t>(lowerCase(unit))) * prime;
    return hash;
}

}  // namespace host
