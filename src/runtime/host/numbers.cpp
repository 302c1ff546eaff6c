#include "runtime/host/numbers.h"

#include "runtime/host/letter_case.h"

namespace host {

namespace {

std::optional<std::uint64_t> numberIn(unsigned int base, std::wstring_view text, std::uint64_t maximum) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    if (text.empty()) return std::nullopt;
    std::uint64_t number = 0;
    for (const wchar_t unit : text) {
        const std::uint64_t digit = digits.substr(0, base).find(lowerCase(unit));
        if (digit == std::wstring_view::npos || digit > maximum || number > (maximum - digit) / base)
            return std::nullopt;
        number = number * base + digit;
    }
    return number;
}

}  // namespace

std::optional<std::uint64_t> numberOf(std::wstring_view text, std::uint64_t maximum) {
    return numberIn(10, text, maximum);
}

std::optional<std::uint64_t> hexNumberOf(std::wstring_view text, std::uint64_t maximum) {
    return numberIn(16, text, maximum);
}

std::optional<DottedVersion> versionOf(std::wstring_view text, std::uint32_t maximum) {
    DottedVersion version{};
    for (std::uint32_t& number : version) {
        const std::size_t end = text.find(L'.');
        const auto part = numberOf(text.substr(0, end), maximum);
        if (!part) return std::nullopt;
        number = static_cast<std::uint32_t>(*part);
        if (end == std::wstring_view::npos) return version;
        text.remove_prefix(end + 1);
    }
    return std::nullopt;
}

std::wstring versionText(const DottedVersion& version) {
    std::wstring text;
    for (const std::uint32_t number : version)
        text += (text.empty() ? L"" : L".") + std::to_wstring(number);
    return text;
}

}  // namespace host
