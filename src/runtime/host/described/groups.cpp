#include "runtime/host/described/account_source.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"
#include "runtime/host/letter_case.h"

namespace host {

namespace {

using description::GroupKind;
using description::Reach;
using description::Scope;

Answer<AccountPage> groupPage(GroupKind kind, std::uint64_t cursor) {
    const description::Directory& directory = description::directory();
    return described::pageOf(cursor, directory.groupCount(kind), described::groupList(kind).cause,
                             [&](std::uint64_t index) { return directory.group(kind, index); });
}

/// Why the groups of an account cannot be asked for, if so.
description::Cause causeOfGroups(GroupKind kind, const Account& user) {
    const auto& causes = described::groupList(kind).accountCauses;
    for (const std::wstring& key : {folded(user.name), std::wstring(L"*")}) {
        const auto found = causes.find(key);
        if (found != causes.end()) return found->second;
    }
    return {};
}

Answer<std::vector<Account>> groupsOf(GroupKind kind, const Account& user, Reach reach) {
    using Result = Answer<std::vector<Account>>;
    const description::Cause cause = causeOfGroups(kind, user);
    if (cause.any) return description::answerOf<std::vector<Account>>(cause);
    auto groups = description::directory().groupsOf(user, kind, reach);
    return groups ? Result(std::move(*groups)) : Result::missing();
}

}  // namespace

Answer<AccountPage> localGroups(const AccountSource& source, std::uint64_t cursor) {
    const Answer<Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    return groupPage(described::localKind(scope.value), cursor);
}

Answer<AccountPage> globalGroups(const AccountSource& source, std::uint64_t cursor) {
    const Answer<Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    if (scope.value == Scope::computer) return AccountPage();
    return groupPage(GroupKind::global, cursor);
}

Answer<std::vector<Account>> localGroupsOf(const AccountSource& source, const Account& user) {
    const Answer<Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<std::vector<Account>>::without(scope);
    if (source.server.empty()) described::countIfRemote(description::directory().isDomainName(user.domain));
    return groupsOf(described::localKind(scope.value), user, Reach::throughAllGroups);
}

Answer<std::vector<Account>> globalGroupsOf(const AccountSource& source, const Account& user) {
    const Answer<Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<std::vector<Account>>::without(scope);
    if (scope.value == Scope::computer) return std::vector<Account>();
    return groupsOf(GroupKind::global, user, Reach::direct);
}

}  // namespace host
