#include "runtime/host/description/section.h"

#include "runtime/host/letter_case.h"

namespace description {

namespace {

bool isBlank(wchar_t unit) {
    return unit == L' ' || unit == L'\t';
}

/// The line without a comment behind two blanks. A quote that does not end protects nothing.
std::wstring_view withoutComment(std::wstring_view text) {
    bool inQuotes = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'"') inQuotes = !inQuotes && text.find(L'"', at + 1) != std::wstring_view::npos;
        const bool begins = text[at] == L'#' && at >= 2 && isBlank(text[at - 1]) && isBlank(text[at - 2]);
        if (begins && !inQuotes) return text.substr(0, at);
    }
    return text;
}

}  // namespace

void forEachItem(const Section& section, const std::function<void(const Item&)>& take) {
    for (const SectionLine& line : section.lines) {
        const std::wstring_view text = trimmed(line.text);
        if (text.empty() || text[0] == L'#') continue;
        take({trimmed(withoutComment(text)), {section.file, line.number}});
    }
}

std::optional<Setting> settingOf(const Item& item, Mistakes& mistakes, const char* example) {
    const std::size_t equals = item.text.find(L'=');
    const std::wstring_view name = trimmed(item.text.substr(0, equals));
    if (equals == std::wstring_view::npos || name.empty()) {
        mistakes.add(item.place, quoted(item.text) + " is no setting, expected one like " + example);
        return std::nullopt;
    }
    return Setting{host::folded(name), name, trimmed(item.text.substr(equals + 1))};
}

bool isCause(const Item& item) {
    return item.text.starts_with(L'!');
}

std::optional<CauseLine> causeLineOf(const Item& item, Mistakes& mistakes) {
    Scanner scanner(item.text.substr(1));
    const std::optional<Cause> cause = scanner.cause();
    if (cause) return CauseLine{*cause, scanner.rest()};
    mistakes.add(item.place,
                 quoted(item.text) + " names no cause, expected \"! refused ...\" or \"! error CODE ...\"");
    return std::nullopt;
}

std::optional<std::wstring_view> removedName(const Item& item) {
    if (!item.text.starts_with(L"- ")) return std::nullopt;
    return trimmed(item.text.substr(2));
}

}  // namespace description
