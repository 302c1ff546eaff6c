#include "runtime/host/description/fold.h"
#include "runtime/host/description/section.h"

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
void readGenerated(Parsing& parsing, const Item& item, std::wstring_view value, UserList& list) {
    Scanner scanner(value);
    const auto count = numberOf(scanner.word(), mostGenerated);
    auto generated = patternOf(scanner.rest());
    if (!count || !generated) {
        parsing.mistakes.add(item.place, quoted(value) + " generates nothing, expected a number up to " +
                                             std::to_string(mostGenerated) + " and a pattern like user%05d");
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
    if (equalFolded(name, L"generate users")) return readGenerated(parsing, item, value, list);
    if (!isAccountName(name)) return reportBadName(parsing, item, name);
    UserEntry entry{std::wstring(name), std::nullopt};
    if (equals != std::wstring_view::npos) {
        entry.sid = equalFolded(value, L"no sid") ? host::Sid() : sidOf(value);
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
        if (ofAccount) list.accountCauses[folded(ofAccount->what)] = ofAccount->cause;
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
void readReachable(Parsing& parsing, const Item& item, std::wstring_view value) {
    constexpr std::uint32_t noSuchDomain = 1355;
    Scanner scanner(value);
    Cause& cause = parsing.machine.domain.unreachable;
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
    parsing.mistakes.add(item.place, quoted(value) + " is neither \"yes\" nor \"no\" nor \"no CODE\"");
}

void readRole(Parsing& parsing, const Item& item, std::wstring_view value) {
    DomainDescription& domain = parsing.machine.domain;
    if (equalFolded(value, L"member") || equalFolded(value, L"controller")) {
        domain.isController = equalFolded(value, L"controller");
    } else {
        parsing.mistakes.add(item.place, quoted(value) + " is no role, expected member or controller");
    }
}

void readPageSize(Parsing& parsing, const Item& item, std::wstring_view value, std::uint64_t& target) {
    std::uint32_t size = 0;
    readNumber(item, value, 1000000, parsing.mistakes, size);
    if (size > 0) {
        target = size;
    } else if (numberOf(value) == 0U) {
        parsing.mistakes.add(item.place, "a page holds at least one account");
    }
}

void parseDomainSetting(Parsing& parsing, const Item& item, const Setting& setting) {
    DomainDescription& domain = parsing.machine.domain;
    if (setting.key == L"joined") {
        readFlag(item, setting.value, parsing.mistakes, domain.joined);
    } else if (setting.key == L"name") {
        domain.name = setting.value;
    } else if (setting.key == L"workgroup") {
        domain.workgroup = setting.value;
    } else if (setting.key == L"dns") {
        domain.dnsName = setting.value;
    } else if (setting.key == L"controller") {
        domain.controller = setting.value;
    } else if (setting.key == L"primary") {
        domain.primary = setting.value;
    } else if (setting.key == L"role") {
        readRole(parsing, item, setting.value);
    } else if (setting.key == L"sid") {
        readSid(item, setting.value, parsing.mistakes, domain.sid);
    } else if (setting.key == L"reachable") {
        readReachable(parsing, item, setting.value);
    } else if (setting.key == L"page size") {
        readPageSize(parsing, item, setting.value, domain.pageSize);
    } else if (setting.key == L"member page size") {
        readPageSize(parsing, item, setting.value, domain.memberPageSize);
    } else if (setting.key == L"generate users") {
        readGenerated(parsing, item, setting.value, parsing.machine.domainUsers);
    } else {
        parsing.mistakes.add(
            item.place,
            "unknown setting " + quoted(setting.name) +
                ", expected joined, name, workgroup, dns, controller, primary, role, sid, reachable, "
                "page size, member page size or generate users");
    }
}

}  // namespace

void parseUsers(Parsing& parsing, const Section& section, UserList& list) {
    forEachItem(section, [&](const Item& item) { parseUserItem(parsing, item, list); });
}

void parseGroups(Parsing& parsing, const Section& section, GroupList& list) {
    forEachItem(section, [&](const Item& item) { parseGroupItem(parsing, item, list); });
}

void parseDomain(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) {
        if (isCause(item)) {
            const auto line = causeLineOf(item, parsing.mistakes);
            if (!line) return;
            if (equalFolded(line->what, L"membership")) {
                parsing.machine.domain.membershipCause = line->cause;
            } else {
                parsing.mistakes.add(item.place,
                                     quoted(line->what) + " cannot fail here, expected \"membership\"");
            }
            return;
        }
        const auto setting = settingOf(item, parsing.mistakes, "one like joined = yes");
        if (setting) parseDomainSetting(parsing, item, *setting);
    });
}

}  // namespace description
