#include <algorithm>
#include <functional>
#include <limits>

#include "runtime/host/computer_name.h"
#include "runtime/host/described/fold.h"
#include "runtime/host/described/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

using described::answerOf;
using described::Directory;
using described::DomainDescription;
using described::GroupKind;
using described::ListCause;
using described::Reach;
using described::Scope;

constexpr std::uint32_t noSuchServer = 53;
constexpr std::uint32_t noSuchDomain = 1355;

const DomainDescription& domain() {
    return described::machine().domain;
}

/// Whether `server` names the computer `name`, alone or followed by the domain's DNS name.
bool namesComputer(const std::wstring& server, const std::wstring& name) {
    if (name.empty()) return false;
    return described::equalFolded(server, name) ||
           described::equalFolded(server, name + L"." + domain().dnsName);
}

/// Which accounts a source has.
Answer<Scope> scopeOf(const AccountSource& source) {
    if (!source.server.empty()) described::countRemoteQuestion();
    const bool isHere =
        source.server.empty() || namesComputer(source.server, described::machine().system.facts.computerName);
    if (isHere) return domain().joined && domain().isController ? Scope::domain : Scope::computer;
    const bool isController = domain().joined && (namesComputer(source.server, domain().controller) ||
                                                  namesComputer(source.server, domain().primary));
    if (!isController) return Answer<Scope>::failed(noSuchServer);
    if (domain().unreachable.any) return answerOf<Scope>(domain().unreachable);
    return Scope::domain;
}

/// Counts a question about an account of the domain: only a controller answers it without another computer.
void countIfRemote(bool isOfDomain) {
    if (isOfDomain && !domain().isController) described::countRemoteQuestion();
}

/// One page of a list of `count` items, as far as the list can be read.
Answer<AccountPage> pageOf(std::uint64_t cursor, std::uint64_t count, const ListCause& cause,
                           const std::function<Account(std::uint64_t)>& item) {
    if (cause.cause.any && cursor >= cause.after) return answerOf<AccountPage>(cause.cause);
    const bool breaksOff = cause.cause.any && cause.after <= count;
    const std::uint64_t readable = breaksOff ? cause.after : count;
    AccountPage page;
    std::uint64_t index = std::min(cursor, readable);
    const std::uint64_t end = index + std::min(domain().pageSize, readable - index);
    page.items.reserve(static_cast<std::size_t>(end - index));
    for (; index < end; ++index)
        page.items.push_back(item(index));
    page.next = end;
    page.more = end < readable || breaksOff;
    return page;
}

const described::GroupList& groupList(GroupKind kind) {
    const described::Machine& machine = described::machine();
    if (kind == GroupKind::local) return machine.groups;
    return kind == GroupKind::domainLocal ? machine.domainGroups : machine.globalGroups;
}

GroupKind localKind(Scope scope) {
    return scope == Scope::computer ? GroupKind::local : GroupKind::domainLocal;
}

Answer<AccountPage> groupPage(GroupKind kind, std::uint64_t cursor) {
    const Directory& directory = described::directory();
    return pageOf(cursor, directory.groupCount(kind), groupList(kind).cause,
                  [&](std::uint64_t index) { return directory.group(kind, index); });
}

/// Why the groups of an account cannot be asked for, if so.
described::Cause causeOfGroups(GroupKind kind, const Account& user) {
    const auto& causes = groupList(kind).accountCauses;
    for (const std::wstring& key : {described::folded(user.name), std::wstring(L"*")}) {
        const auto found = causes.find(key);
        if (found != causes.end()) return found->second;
    }
    return {};
}

Answer<std::vector<Account>> groupsOf(GroupKind kind, const Account& user, Reach reach) {
    using Result = Answer<std::vector<Account>>;
    const described::Cause cause = causeOfGroups(kind, user);
    if (cause.any) return answerOf<std::vector<Account>>(cause);
    auto groups = described::directory().groupsOf(user, kind, reach);
    return groups ? Result(std::move(*groups)) : Result::missing();
}

/// Why the members of the groups cannot be asked for, if so: they would tell what is not to be told of an
/// account.
described::Cause causeOfMembers(GroupKind kind) {
    const auto& causes = groupList(kind).accountCauses;
    return causes.empty() ? described::Cause{} : causes.begin()->second;
}

Answer<AccountPage> membersOf(GroupKind kind, const Account& group, std::uint64_t cursor) {
    const described::Cause cause = causeOfMembers(kind);
    if (cause.any) return answerOf<AccountPage>(cause);
    const std::uint64_t room = std::numeric_limits<std::uint64_t>::max() - cursor;
    const std::uint64_t end = cursor + std::min(domain().memberPageSize, room);
    std::uint64_t count = 0;
    auto members = described::directory().members(kind, group, cursor, end, count);
    if (!members) return Answer<AccountPage>::missing();
    AccountPage page;
    page.items = std::move(*members);
    page.next = end;
    page.more = end < count;
    return page;
}

Answer<Account> accountOr(std::optional<Account> found, bool isOfDomain) {
    countIfRemote(isOfDomain);
    if (isOfDomain && domain().unreachable.any && !domain().isController)
        return answerOf<Account>(domain().unreachable);
    return found ? Answer<Account>(std::move(*found)) : Answer<Account>::missing();
}

}  // namespace

Answer<Membership> membership() {
    if (domain().membershipCause.any) return answerOf<Membership>(domain().membershipCause);
    Membership result;
    result.joined = domain().joined;
    result.domainController = domain().joined && domain().isController;
    result.domainName = domain().joined ? domain().name : domain().workgroup;
    if (domain().joined) result.dnsDomainName = domain().dnsName;
    return result;
}

Answer<AccountDomain> accountDomain() {
    const described::Cause& cause = described::machine().system.systemCause;
    if (cause.any) return answerOf<AccountDomain>(cause);
    const Scope scope = domain().joined && domain().isController ? Scope::domain : Scope::computer;
    const Directory& directory = described::directory();
    return AccountDomain{std::wstring(directory.label(scope)), directory.domainSid(scope)};
}

Answer<std::wstring> domainController(const Membership& membership, bool primary, bool) {
    if (!membership.joined) return {};
    described::countRemoteQuestion();
    if (!described::directory().isDomainName(membership.domainName))
        return Answer<std::wstring>::failed(noSuchDomain);
    if (domain().unreachable.any) return answerOf<std::wstring>(domain().unreachable);
    const std::wstring& name = primary && !domain().primary.empty() ? domain().primary : domain().controller;
    if (!name.empty()) return primary ? computerName(name) : name;
    if (domain().isController) return described::machine().system.facts.computerName;
    return Answer<std::wstring>::failed(noSuchDomain);
}

Answer<AccountPage> users(const AccountSource& source, std::uint64_t cursor) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    const Directory& directory = described::directory();
    const described::Machine& machine = described::machine();
    const ListCause& cause = (scope.value == Scope::computer ? machine.users : machine.domainUsers).cause;
    return pageOf(cursor, directory.userCount(scope.value), cause,
                  [&](std::uint64_t index) { return directory.user(scope.value, index); });
}

Answer<AccountPage> localGroups(const AccountSource& source, std::uint64_t cursor) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    return groupPage(localKind(scope.value), cursor);
}

Answer<std::vector<Account>> localGroupsOf(const AccountSource& source, const Account& user) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<std::vector<Account>>::without(scope);
    if (source.server.empty()) countIfRemote(described::directory().isDomainName(user.domain));
    return groupsOf(localKind(scope.value), user, Reach::throughAllGroups);
}

Answer<std::vector<Account>> globalGroupsOf(const AccountSource& source, const Account& user) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<std::vector<Account>>::without(scope);
    if (scope.value == Scope::computer) return std::vector<Account>();
    return groupsOf(GroupKind::global, user, Reach::direct);
}

Answer<AccountPage> globalGroups(const AccountSource& source, std::uint64_t cursor) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    if (scope.value == Scope::computer) return AccountPage();
    return groupPage(GroupKind::global, cursor);
}

Answer<AccountPage> localGroupMembers(const AccountSource& source, const Account& group,
                                      std::uint64_t cursor) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    Answer<AccountPage> page = membersOf(localKind(scope.value), group, cursor);
    for (Account& member : page.value.items) {
        if (!member.sid.empty()) member = {{}, {}, member.sid};
    }
    return page;
}

Answer<AccountPage> globalGroupMembers(const AccountSource& source, const Account& group,
                                       std::uint64_t cursor) {
    const Answer<Scope> scope = scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    if (scope.value == Scope::computer) return Answer<AccountPage>::missing();
    Answer<AccountPage> page = membersOf(GroupKind::global, group, cursor);
    for (Account& member : page.value.items) {
        if (!member.name.empty()) member.sid = {};
    }
    return page;
}

Nesting nesting() {
    return Nesting::throughAllGroups;
}

Answer<Account> accountOfSid(const Sid& sid) {
    return accountOr(described::directory().accountOfSid(sid), described::directory().isOfDomain(sid));
}

Answer<Account> accountOfName(const std::wstring& fullName) {
    const std::size_t separator = fullName.find(L'\\');
    const bool isOfDomain =
        separator != std::wstring::npos &&
        described::directory().isDomainName(std::wstring_view(fullName).substr(0, separator));
    return accountOr(described::directory().accountOfName(fullName), isOfDomain);
}

}  // namespace host
