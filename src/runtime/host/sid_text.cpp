#include "runtime/host/sid_text.h"

#include <algorithm>

#include "runtime/host/letter_case.h"
#include "runtime/host/numbers.h"

namespace host {

namespace {

constexpr std::wstring_view beginning = L"S-1-";
constexpr std::wstring_view hexMark = L"0x";
constexpr std::uint64_t largestPart = 0xFFFFFFFFU;
constexpr std::uint64_t largestAuthority = 0xFFFFFFFFFFFFU;

std::wstring authorityText(const Sid& sid) {
    std::uint64_t authority = 0;
    for (const std::uint8_t byte : sid.authority)
        authority = authority << 8U | byte;
    if (authority <= largestPart) return std::to_wstring(authority);
    std::wstring digits;
    for (int shift = 44; shift >= 0; shift -= 4)
        digits += L"0123456789ABCDEF"[authority >> shift & 0xFU];
    return std::wstring(hexMark) + digits;
}

std::optional<std::uint64_t> authorityOf(std::wstring_view text) {
    if (!equalIgnoringCase(text.substr(0, hexMark.size()), hexMark)) return numberOf(text, largestAuthority);
    return hexNumberOf(text.substr(hexMark.size()), largestAuthority);
}

}  // namespace

std::wstring sidText(const Sid& sid) {
    std::wstring text = L"S-" + std::to_wstring(sid.revision) + L"-" + authorityText(sid);
    const unsigned int count = std::min<unsigned int>(sid.subAuthorityCount, Sid::maximumSubAuthorities);
    for (unsigned int index = 0; index < count; ++index)
        text += L"-" + std::to_wstring(sid.subAuthorities[index]);
    return text;
}

bool looksLikeSid(std::wstring_view text) {
    return equalIgnoringCase(text.substr(0, beginning.size()), beginning);
}

std::optional<Sid> sidOf(std::wstring_view text) {
    if (!looksLikeSid(text)) return std::nullopt;
    text.remove_prefix(beginning.size());
    std::size_t end = text.find(L'-');
    const auto authority = authorityOf(text.substr(0, end));
    if (!authority) return std::nullopt;
    Sid sid;
    for (std::size_t index = 0; index < sid.authority.size(); ++index)
        sid.authority[index] = static_cast<std::uint8_t>(*authority >> 8U * (5 - index) & 0xFFU);
    while (end != std::wstring_view::npos) {
        text.remove_prefix(end + 1);
        end = text.find(L'-');
        const auto part = numberOf(text.substr(0, end), largestPart);
        if (!part || sid.subAuthorityCount == Sid::maximumSubAuthorities) return std::nullopt;
        sid.subAuthorities[sid.subAuthorityCount++] = static_cast<std::uint32_t>(*part);
    }
    if (sid.empty()) return std::nullopt;
    return sid;
}

}  // namespace host
