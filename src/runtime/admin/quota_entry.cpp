#include "runtime/admin/quota_entry.h"

#include <limits>
#include <string_view>

#include "runtime/admin/config_text.h"

namespace {

constexpr std::uint64_t largestQuota = std::numeric_limits<std::uint64_t>::max();

bool isBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}

bool isDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// `word` is in small letters.
bool is(std::wstring_view text, const wchar_t* word) {
    return CString(std::wstring(text)).CompareNoCase(word) == 0;
}

/// What is left of a line. A comment begins at a '#' that stands first or behind a blank.
class Rest {
public:
    explicit Rest(std::wstring_view line) : m_rest(line) { skipBlanks(); }

    bool atEnd() const { return m_rest.empty() || (m_behindBlank && m_rest.front() == L'#'); }
    bool startsWith(wchar_t unit) const { return !atEnd() && m_rest.front() == unit; }

    /// Up to the next blank or "=".
    std::wstring_view word() {
        std::size_t end = 0;
        while (end < m_rest.size() && !isBlank(m_rest[end]) && m_rest[end] != L'=')
            ++end;
        return take(end);
    }

    /// What stands between two double quotes, the first of which comes next.
    std::wstring_view quoted() {
        const std::size_t end = m_rest.find(L'"', 1);
        if (end == std::wstring_view::npos) {
            throw ConfigMistake{quotedText(m_rest) +
                                L" has no closing quote, expected \" behind the account"};
        }
        return take(end + 1).substr(1, end - 1);
    }

    void skip() { take(1); }

    /// Up to the end or the comment, without blanks at the end.
    std::wstring_view text() const {
        std::size_t end = 0;
        for (bool behindBlank = m_behindBlank; end < m_rest.size(); ++end) {
            if (behindBlank && m_rest[end] == L'#') break;
            behindBlank = isBlank(m_rest[end]);
        }
        while (end > 0 && isBlank(m_rest[end - 1]))
            --end;
        return m_rest.substr(0, end);
    }

private:
    std::wstring_view take(std::size_t count) {
        const std::wstring_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        m_behindBlank = false;
        skipBlanks();
        return taken;
    }

    void skipBlanks() {
        while (!m_rest.empty() && isBlank(m_rest.front())) {
            m_rest.remove_prefix(1);
            m_behindBlank = true;
        }
    }

    std::wstring_view m_rest;
    bool m_behindBlank = true;
};

QuotaEntry::Kind readKind(Rest& rest) {
    const std::wstring_view word = rest.word();
    if (is(word, L"default")) return QuotaEntry::Kind::defaultQuota;
    if (is(word, L"user")) return QuotaEntry::Kind::user;
    if (is(word, L"group")) return QuotaEntry::Kind::group;
    throw ConfigMistake{quotedText(word) + L" is no entry, expected \"default\", \"user\" or \"group\""};
}

std::wstring readAccount(Rest& rest, const wchar_t* kind) {
    const bool inQuotes = rest.startsWith(L'"');
    const std::wstring_view name = rest.atEnd() ? std::wstring_view()
                                   : inQuotes   ? rest.quoted()
                                                : rest.word();
    if (name.find_first_not_of(L" \t") == std::wstring_view::npos) {
        throw ConfigMistake{formatted(L"no account, expected its name or SID behind \"%s\"", kind)};
    }
    if (name.find(L'"') != std::wstring_view::npos) {
        throw ConfigMistake{quotedText(name) + L" holds a quote, expected quotes around the whole account"};
    }
    return std::wstring(name);
}

void readEqualsSign(Rest& rest, bool isDefault) {
    if (rest.startsWith(L'=')) return rest.skip();
    const CString found = rest.atEnd() ? CString(L"the line ends") : quotedText(rest.text()) + L" comes";
    throw ConfigMistake{found +
                        (isDefault ? L" where \"=\" was expected"
                                   : L" where \"=\" was expected; an account with blanks stands in quotes")};
}

/// How often 1024 is in the unit; negative for a text that is no unit.
int exponentOf(std::wstring_view unit) {
    const wchar_t* const units[] = {L"", L"kb", L"mb", L"gb", L"tb"};
    for (int exponent = 0; exponent < 5; ++exponent) {
        if (is(unit, units[exponent])) return exponent;
    }
    return -1;
}

/// `number` times `factor` plus `rest`; the text is what the number stands in.
std::uint64_t grown(std::uint64_t number, std::uint64_t factor, std::uint64_t rest, std::wstring_view text) {
    if (number > (largestQuota - rest) / factor) {
        throw ConfigMistake{quotedText(text) + formatted(L" is too large, expected at most %u bytes",
                                                         static_cast<unsigned long long>(largestQuota))};
    }
    return number * factor + rest;
}

QVQuota quotaOf(std::wstring_view text) {
    if (is(text, L"unlimited")) return QVQuota::unlimited();
    std::size_t end = 0;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    std::size_t unit = end;
    while (unit < text.size() && isBlank(text[unit]))
        ++unit;
    const int exponent = exponentOf(text.substr(unit));
    if (end == 0 || exponent < 0) {
        throw ConfigMistake{(text.empty() ? CString(L"no quota") : quotedText(text) + L" is no quota") +
                            L", expected \"unlimited\" or a whole number, alone or with KB, MB, GB or TB"};
    }
    std::uint64_t bytes = 0;
    for (const wchar_t digit : text.substr(0, end)) {
        bytes = grown(bytes, 10, static_cast<std::uint64_t>(digit - L'0'), text);
    }
    for (int i = 0; i < exponent; ++i)
        bytes = grown(bytes, 1024, 0, text);
    return QVQuota::ofBytes(bytes);
}

}  // namespace

std::optional<QuotaEntry> parseQuotaEntry(const std::wstring& line) {
    Rest rest(line);
    if (rest.atEnd()) return std::nullopt;
    QuotaEntry entry;
    entry.kind = readKind(rest);
    const bool isDefault = entry.kind == QuotaEntry::Kind::defaultQuota;
    if (!isDefault)
        entry.account = readAccount(rest, entry.kind == QuotaEntry::Kind::user ? L"user" : L"group");
    readEqualsSign(rest, isDefault);
    entry.quota = quotaOf(rest.text());
    return entry;
}
