#include "runtime/host/description/scanner.h"

#include <cmath>

#include "runtime/host/letter_case.h"
#include "runtime/host/refusals.h"
#include "runtime/host/text.h"

namespace description {

namespace {

constexpr std::wstring_view blanks = L" \t\x00A0";
constexpr std::uint32_t accessDenied = 5;

/// The multiplier of a unit of size; 0 when it is none.
std::uint64_t multiplierOf(std::wstring_view unit) {
    constexpr std::wstring_view names[] = {L"B", L"KB", L"MB", L"GB", L"TB", L"PB"};
    std::uint64_t multiplier = 1;
    for (const std::wstring_view name : names) {
        if (host::equalIgnoringCase(unit, name)) return multiplier;
        multiplier *= 1024;
    }
    return 0;
}

}  // namespace

std::wstring_view trimmed(std::wstring_view text) {
    return host::trimmed(text, blanks);
}

std::optional<std::uint32_t> codeOf(std::wstring_view text) {
    constexpr std::uint32_t largest = 0xFFFFFFFFU;
    const bool isHexadecimal = text.starts_with(L"0x") && text.size() <= 10;
    const auto code = isHexadecimal ? host::hexNumberOf(text.substr(2), largest) : numberOf(text, largest);
    return code ? std::optional(static_cast<std::uint32_t>(*code)) : std::nullopt;
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
    if (atEnd() || !host::equalIgnoringCase(nextWord(), wanted)) return false;
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
