#include "runtime/base/dotted_version.h"

#include <limits>

namespace {

/// Reads one number at `at` and leaves `at` behind it.
std::optional<std::uint32_t> readNumber(const wchar_t*& at) {
    std::uint64_t number = 0;
    const wchar_t* const begin = at;
    for (; *at >= L'0' && *at <= L'9'; ++at) {
        number = number * 10 + static_cast<std::uint64_t>(*at - L'0');
        if (number > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
    }
    if (at == begin) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

const wchar_t* skipBlanks(const wchar_t* at) {
    while (*at == L' ' || *at == L'\t')
        ++at;
    return at;
}

}  // namespace

std::optional<DottedVersion> parseDottedVersion(const CString& text) {
    DottedVersion version{};
    const wchar_t* at = skipBlanks(text);
    for (std::size_t i = 0; i < version.size(); ++i) {
        const auto number = readNumber(at);
        if (!number) return std::nullopt;
        version[i] = *number;
        if (*at != L'.') break;
        if (i + 1 < version.size()) ++at;
    }
    if (*skipBlanks(at) != L'\0') return std::nullopt;
    return version;
}

CString toText(const DottedVersion& version) {
    return formatted(L"%u.%u.%u.%u", version[0], version[1], version[2], version[3]);
}
