#include "runtime/host/facts.h"

#include <iterator>

#include <algorithm>
#include <tuple>

#include "runtime/host/letter_case.h"

namespace host {

namespace {

/// The sub-authorities that count: what lies behind them is no part of the identifier. A count above the
/// maximum, which only a broken answer can hold, is cut.
std::pair<const std::uint32_t*, const std::uint32_t*> counted(const Sid& sid) {
    const std::uint32_t* first = sid.subAuthorities.data();
    return {first, first + std::min<unsigned int>(sid.subAuthorityCount, Sid::maximumSubAuthorities)};
}

}  // namespace

bool isSameAccount(const Account& left, const Account& right) {
    if (!left.sid.empty() && !right.sid.empty()) return left.sid == right.sid;
    return !left.name.empty() && equalIgnoringCase(left.domain, right.domain) &&
           equalIgnoringCase(left.name, right.name);
}

bool AccountDomain::has(const Sid& account) const {
    if (account.subAuthorityCount != sid.subAuthorityCount + 1) return false;
    Sid domain = account;
    --domain.subAuthorityCount;
    return domain == sid;
}

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

std::wstring registryTypeName(std::uint32_t type, std::size_t size) {
    static constexpr const wchar_t* names[] = {
        L"REG_NONE",
        L"REG_SZ",
        L"REG_EXPAND_SZ",
        L"REG_BINARY",
        L"REG_DWORD",
        L"REG_DWORD_BIG_ENDIAN",
        L"REG_LINK",
        L"REG_MULTI_SZ",
        L"REG_RESOURCE_LIST",
        L"REG_FULL_RESOURCE_DESCRIPTOR",
        L"REG_RESOURCE_REQUIREMENTS_LIST",
        L"REG_QWORD",
    };
    constexpr std::uint32_t number = 4;
    if (type == number && size != sizeof(std::uint32_t)) {
        return std::wstring(names[type]) + L" of " + std::to_wstring(size) +
               (size == 1 ? L" byte" : L" bytes");
    }
    return type < std::size(names) ? names[type] : L"registry type " + std::to_wstring(type);
}

}  // namespace host
