#include "runtime/host/description/scanner.h"

#include <cmath>

#include "runtime/host/description/fold.h"
#include "runtime/host/refusals.h"

namespace description {

namespace {

constexpr std::wstring_view blanks = L" \t\x00A0";
constexpr std::uint32_t accessDenied = 5;

bool isDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// The multiplier of a unit of size; 0 when it is none.
std::uint64_t multiplierOf(std::wstring_view unit) {
    constexpr std::wstring_view names[] = {L"B", L"KB", L"MB", L"GB", L"TB", L"PB"};
    std::uint64_t multiplier = 1;
    for (const std::wstring_view name : names) {
        if (equalFolded(unit, name)) return multiplier;
        multiplier *= 1024;
    }
    return 0;
}

/// Takes the part up to the next "-".
std::wstring_view takeSidPart(std::wstring_view& text) {
    const std::size_t end = text.find(L'-');
    const std::wstring_view part = text.substr(0, end);
    text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    return part;
}

}  // namespace

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

std::optional<std::uint64_t> numberOf(std::wstring_view text, std::uint64_t maximum) {
    if (text.empty()) return std::nullopt;
    std::uint64_t value = 0;
    for (const wchar_t unit : text) {
        if (!isDigit(unit)) return std::nullopt;
        const auto digit = static_cast<std::uint64_t>(unit - L'0');
        if (value > (std::numeric_limits<std::uint64_t>::max() - digit) / 10) return std::nullopt;
        value = value * 10 + digit;
    }
    if (value > maximum) return std::nullopt;
    return value;
}

std::optional<std::uint32_t> codeOf(std::wstring_view text) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    if (!text.starts_with(L"0x")) {
        const auto number = numberOf(text, 0xFFFFFFFFU);
        return number ? std::optional(static_cast<std::uint32_t>(*number)) : std::nullopt;
    }
    if (text.size() < 3 || text.size() > 10) return std::nullopt;
    std::uint32_t code = 0;
    for (const wchar_t unit : folded(text.substr(2))) {
        const std::size_t digit = digits.find(unit);
        if (digit == std::wstring_view::npos) return std::nullopt;
        code = code << 4U | static_cast<std::uint32_t>(digit);
    }
    return code;
}

std::optional<std::uint64_t> sizeOf(std::wstring_view number, std::wstring_view unit) {
    const std::uint64_t multiplier = unit.empty() ? 1 : multiplierOf(unit);
    const std::size_t point = number.find(L'.');
    const auto whole = numberOf(number.substr(0, point));
    if (multiplier == 0 || !whole || *whole > std::numeric_limits<std::uint64_t>::max() / multiplier)
        return std::nullopt;
    if (point == std::wstring_view::npos) return *whole * multiplier;
    const std::wstring_view digits = number.substr(point + 1);
    const auto fraction = numberOf(digits, 999999);
    if (!fraction || digits.size() > 6 || *whole > 1000000) return std::nullopt;
    const double part = static_cast<double>(*fraction) / std::pow(10.0, static_cast<double>(digits.size()));
    return *whole * multiplier + static_cast<std::uint64_t>(part * static_cast<double>(multiplier));
}

std::optional<host::Sid> sidOf(std::wstring_view text) {
    if (text.size() < 4 || !equalFolded(text.substr(0, 4), L"S-1-")) return std::nullopt;
    text.remove_prefix(4);
    host::Sid sid;
    const auto authority = numberOf(takeSidPart(text), 0xFFFFFFFFFFFFU);
    if (!authority || text.empty()) return std::nullopt;
    for (unsigned int index = 0; index < 6; ++index) {
        sid.authority[index] = static_cast<std::uint8_t>((*authority >> (8U * (5U - index))) & 0xFFU);
    }
    while (!text.empty()) {
        const bool endsWithDash = text.back() == L'-';
        const auto part = numberOf(takeSidPart(text), 0xFFFFFFFFU);
        if (!part || endsWithDash || sid.subAuthorityCount == host::Sid::maximumSubAuthorities)
            return std::nullopt;
        sid.subAuthorities[sid.subAuthorityCount++] = static_cast<std::uint32_t>(*part);
    }
    return sid;
}

std::wstring sidText(const host::Sid& sid) {
    std::uint64_t authority = 0;
    for (const std::uint8_t byte : sid.authority)
        authority = authority << 8U | byte;
    std::wstring text = L"S-" + std::to_wstring(sid.revision) + L"-" + std::to_wstring(authority);
    for (unsigned int index = 0; index < sid.subAuthorityCount && index < host::Sid::maximumSubAuthorities;
         ++index) {
        text += L"-" + std::to_wstring(sid.subAuthorities[index]);
    }
    return text;
}

bool readVersion(std::wstring_view text, std::uint64_t maximum, std::uint32_t (&numbers)[4]) {
    for (std::uint32_t& number : numbers)
        number = 0;
    for (std::uint32_t& number : numbers) {
        const std::size_t end = text.find(L'.');
        const auto part = numberOf(text.substr(0, end), maximum);
        if (!part) return false;
        number = static_cast<std::uint32_t>(*part);
        if (end == std::wstring_view::npos) return true;
        text.remove_prefix(end + 1);
    }
    return false;
}

Cause causeOf(std::uint32_t code) {
    return {true, host::isRefusal(code), code};
}

std::wstring_view Scanner::nextWord() const {
    return m_rest.substr(0, m_rest.find_first_of(blanks));
}

std::wstring_view Scanner::word() {
    const std::wstring_view next = nextWord();
    advance(next.size());
    return next;
}

bool Scanner::take(std::wstring_view wanted) {
    if (atEnd() || !equalFolded(nextWord(), wanted)) return false;
    advance(nextWord().size());
    return true;
}

std::optional<std::wstring> Scanner::quotedText() {
    if (!m_rest.starts_with(L'"')) return std::nullopt;
    std::wstring text;
    for (std::size_t at = 1; at < m_rest.size(); ++at) {
        if (m_rest[at] != L'"') {
            text += m_rest[at];
        } else if (at + 1 < m_rest.size() && m_rest[at + 1] == L'"') {
            text += m_rest[at++];
        } else {
            advance(at + 1);
            return text;
        }
    }
    return std::nullopt;
}

std::optional<Cause> Scanner::cause() {
    const Scanner before = *this;
    if (take(L"refused")) {
        const auto code = codeOf(nextWord());
        if (code) word();
        return Cause{true, true, code.value_or(accessDenied)};
    }
    if (take(L"error")) {
        const auto code = codeOf(nextWord());
        if (code) {
            word();
            return causeOf(*code);
        }
    }
    *this = before;
    return std::nullopt;
}

std::optional<std::uint64_t> Scanner::size() {
    const Scanner before = *this;
    const std::wstring_view number = word();
    const Scanner afterNumber = *this;
    const std::wstring_view unit = word();
    if (multiplierOf(unit) != 0) {
        const auto bytes = sizeOf(number, unit);
        if (bytes) return bytes;
    }
    *this = afterNumber;
    const auto bytes = sizeOf(number, {});
    if (!bytes || number.find(L'.') != std::wstring_view::npos) {
        *this = before;
        return std::nullopt;
    }
    return bytes;
}

}  // namespace description
