#include "runtime/host/facts.h"

#include <algorithm>
#include <tuple>

namespace host {

namespace {

/// The sub-authorities that count: what lies behind them is no part of the identifier. A count above the
/// maximum, which only a broken answer can hold, is cut.
std::pair<const std::uint32_t*, const std::uint32_t*> counted(const Sid& sid) {
    const std::uint32_t* first = sid.subAuthorities.data();
    return {first, first + std::min<unsigned int>(sid.subAuthorityCount, Sid::maximumSubAuthorities)};
}

}  // namespace

bool Sid::operator==(const Sid& other) const {
    const auto [first, last] = counted(*this);
    const auto [otherFirst, otherLast] = counted(other);
    return revision == other.revision && authority == other.authority &&
           std::equal(first, last, otherFirst, otherLast);
}

bool Sid::operator<(const Sid& other) const {
    const auto head = std::tie(revision, authority);
    const auto otherHead = std::tie(other.revision, other.authority);
    if (head != otherHead) return head < otherHead;
    const auto [first, last] = counted(*this);
    const auto [otherFirst, otherLast] = counted(other);
    return std::lexicographical_compare(first, last, otherFirst, otherLast);
}

}  // namespace host
