#include "runtime/host/description/section.h"
#include "runtime/host/description/settings.h"
#include "runtime/host/letter_case.h"

/// [users], [groups], [domain] and its lists.

namespace description {

namespace {

constexpr std::uint64_t mostGenerated = 10000000;
constexpr std::uint64_t longestList = 1000000000000U;

/// Every unit of `name` may stand in an account's name.
bool isAccountName(std::wstring_view name) {
    return !name.empty() && name.find_first_of(L"\"/\\[]:;|=,+*?<>") == std::wstring_view::npos;
}

/// "user%05d": one place for the number.
std::optional<GeneratedUsers> patternOf(std::wstring_view text) {
    const std::size_t percent = text.find(L'%');
    if (percent == std::wstring_view::npos) return std::nullopt;
    std::size_t end = percent + 1;
    while (end < text.size() && text[end] >= L'0' && text[end] <= L'9')
        ++end;
    if (end == text.size() || text[end] != L'd') return std::nullopt;
    GeneratedUsers result;
    if (end > percent + 1) {
        const auto digits = numberOf(text.substr(percent + 1, end - percent - 1), 20);
        if (!digits || text[percent + 1] != L'0') return std::nullopt;
        result.digits = static_cast<unsigned int>(*digits);
    }
    result.prefix = text.substr(0, percent);
    result.suffix = text.substr(end + 1);
    if (!isAccountName(result.prefix + L"1" + result.suffix)) return std::nullopt;
    if (result.suffix.find(L'%') != std::wstring::npos) return std::nullopt;
    return result;
}

/// "25000 user%05d".
void readGenerated(const SettingLine& line, UserList& list) {
    Scanner scanner(line.value);
    const auto count = numberOf(scanner.word(), mostGenerated);
    auto generated = patternOf(scanner.rest());
    if (!count || !generated) {
        line.reject(" generates nothing, expected a number up to " + std::to_string(mostGenerated) +
                    " and a pattern like user%05d");
        return;
    }
    generated->count = *count;
    list.generated.push_back(std::move(*generated));
}

/// "! error 5", "! error 2221 after 100"; what follows is returned.
std::optional<CauseLine> readListCause(Parsing& parsing, const Item& item, ListCause& target) {
    const auto line = causeLineOf(item, parsing.mistakes);
    if (!line) return std::nullopt;
    Scanner scanner(line->what);
    std::uint64_t after = 0;
    if (scanner.take(L"after")) {
        const auto number = numberOf(scanner.rest(), longestList);
        if (!number) {
            parsing.mistakes.add(item.place, quoted(scanner.rest()) + " is no number of accounts");
            return std::nullopt;
        }
        after = *number;
    } else if (!scanner.atEnd()) {
        return line;
    }
    target = {line->cause, after};
    return std::nullopt;
}

void reportBadName(Parsing& parsing, const Item& item, std::wstring_view name) {
    parsing.mistakes.add(
        item.place,
        quoted(name) + " is no account name, expected one without \" / \\ [ ] : ; | = , + * ? < >");
}

void parseUserItem(Parsing& parsing, const Item& item, UserList& list) {
    if (isCause(item)) {
        if (readListCause(parsing, item, list.cause)) {
            parsing.mistakes.add(
                item.place,
                "causes hold for the whole list here, expected \"! error CODE\" or \"! error "
                "CODE after NUMBER\"");
        }
        return;
    }
    if (const auto removed = removedName(item)) return list.listed.remove(*removed);
    const std::size_t equals = item.text.find(L'=');
    const std::wstring_view name = trimmed(item.text.substr(0, equals));
    const std::wstring_view value =
        equals == std::wstring_view::npos ? std::wstring_view() : trimmed(item.text.substr(equals + 1));
    if (host::equalIgnoringCase(name, L"generate users"))
        return readGenerated({parsing, item.place, value}, list);
    if (!isAccountName(name)) return reportBadName(parsing, item, name);
    UserEntry entry{std::wstring(name), std::nullopt};
    if (equals != std::wstring_view::npos) {
        entry.sid = host::equalIgnoringCase(value, L"no sid") ? host::Sid() : sidOf(value);
        if (!entry.sid)
            parsing.mistakes.add(item.place,
                                 quoted(value) + " is no SID, expected one like S-1-5-21-1-2-3-1001");
    }
    list.listed.put(std::move(entry));
}

/// "NAME [ (DOMAIN) ] [ SID ]".
std::optional<GroupEntry> readGroupName(Parsing& parsing, const Item& item, std::wstring_view text) {
    GroupEntry group;
    const std::size_t lastBlank = text.find_last_of(L" \t");
    if (lastBlank != std::wstring_view::npos) {
        group.sid = sidOf(text.substr(lastBlank + 1));
        if (group.sid) text = trimmed(text.substr(0, lastBlank));
    }
    const std::size_t open = text.rfind(L" (");
    if (open != std::wstring_view::npos && text.ends_with(L')')) {
        group.domain = trimmed(text.substr(open + 2, text.size() - open - 3));
        text = trimmed(text.substr(0, open));
    }
    if (!isAccountName(text)) {
        reportBadName(parsing, item, text);
        return std::nullopt;
    }
    group.name = text;
    return group;
}

void readMembers(const Item& item, std::wstring_view text, GroupEntry& group) {
    while (!text.empty()) {
        const std::size_t comma = text.find(L',');
        const std::wstring_view member = trimmed(text.substr(0, comma));
        if (!member.empty()) group.members.push_back({std::wstring(member), item.place});
        text.remove_prefix(comma == std::wstring_view::npos ? text.size() : comma + 1);
    }
}

void parseGroupItem(Parsing& parsing, const Item& item, GroupList& list) {
    if (isCause(item)) {
        const auto ofAccount = readListCause(parsing, item, list.cause);
        if (ofAccount) list.accountCauses[host::folded(ofAccount->what)] = ofAccount->cause;
        return;
    }
    if (const auto removed = removedName(item)) return list.listed.remove(*removed);
    const std::size_t equals = item.text.find(L'=');
    auto group = readGroupName(parsing, item, trimmed(item.text.substr(0, equals)));
    if (!group) return;
    if (equals != std::wstring_view::npos) readMembers(item, item.text.substr(equals + 1), *group);
    list.listed.put(std::move(*group));
}

/// "yes", "no", "no 1722".
void readReachable(const SettingLine& line) {
    constexpr std::uint32_t noSuchDomain = 1355;
    Scanner scanner(line.value);
    Cause& cause = line.machine().domain.unreachable;
    if (scanner.take(L"yes") && scanner.atEnd()) {
        cause = {};
        return;
    }
    if (scanner.take(L"no")) {
        const auto code = scanner.atEnd() ? std::optional(noSuchDomain) : codeOf(scanner.rest());
        if (code) {
            cause = causeOf(*code);
            return;
        }
    }
    line.reject(" is neither \"yes\" nor \"no\" nor \"no CODE\"");
}

void readRole(const SettingLine& line) {
    DomainDescription& domain = line.machine().domain;
    if (host::equalIgnoringCase(line.value, L"member") ||
        host::equalIgnoringCase(line.value, L"controller")) {
        domain.isController = host::equalIgnoringCase(line.value, L"controller");
    } else {
        line.reject(" is no role, expected member or controller");
    }
}

void readPageSize(const SettingLine& line, std::uint64_t& target) {
    std::uint32_t size = 0;
    readNumber(line, 1000000, size);
    if (size > 0) {
        target = size;
    } else if (numberOf(line.value) == 0U) {
        line.parsing.mistakes.add(line.place, "a page holds at least one account");
    }
}

DomainDescription& domainOf(const SettingLine& line) {
    return line.machine().domain;
}

constexpr SettingRow domainRows[] = {
    {L"joined", [](const SettingLine& line) { readFlag(line, domainOf(line).joined); }},
    {L"name", [](const SettingLine& line) { domainOf(line).name = line.value; }},
    {L"workgroup", [](const SettingLine& line) { domainOf(line).workgroup = line.value; }},
    {L"dns", [](const SettingLine& line) { domainOf(line).dnsName = line.value; }},
    {L"controller", [](const SettingLine& line) { domainOf(line).controller = line.value; }},
    {L"primary", [](const SettingLine& line) { domainOf(line).primary = line.value; }},
    {L"role", readRole},
    {L"sid", [](const SettingLine& line) { readSid(line, domainOf(line).sid); }},
    {L"reachable", readReachable},
    {L"page size", [](const SettingLine& line) { readPageSize(line, domainOf(line).pageSize); }},
    {L"member page size", [](const SettingLine& line) { readPageSize(line, domainOf(line).memberPageSize); }},
    {L"generate users", [](const SettingLine& line) { readGenerated(line, line.machine().domainUsers); }},
};

constexpr CauseRow domainCauses[] = {
    {L"membership", [](Machine& machine) -> Cause& { return machine.domain.membershipCause; }},
};

}  // namespace

constinit const SettingTable domainSettings{"joined = yes", domainRows, domainCauses};

void parseUsers(Parsing& parsing, const Section& section, UserList& list) {
    forEachItem(section, [&](const Item& item) { parseUserItem(parsing, item, list); });
}

void parseGroups(Parsing& parsing, const Section& section, GroupList& list) {
    forEachItem(section, [&](const Item& item) { parseGroupItem(parsing, item, list); });
}

}  // namespace description
