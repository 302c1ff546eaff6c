#include <algorithm>
#include <limits>

#include "runtime/host/described/account_source.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

using description::GroupKind;
using description::Scope;

/// Why the members of the groups cannot be asked for, if so: they would tell what is not to be told of an
/// account.
description::Cause causeOfMembers(GroupKind kind) {
    const auto& causes = described::groupList(kind).accountCauses;
    return causes.empty() ? description::Cause{} : causes.begin()->second;
}

Answer<AccountPage> membersOf(GroupKind kind, const Account& group, std::uint64_t cursor) {
    const description::Cause cause = causeOfMembers(kind);
    if (cause.any) return description::answerOf<AccountPage>(cause);
    const std::uint64_t room = std::numeric_limits<std::uint64_t>::max() - cursor;
    const std::uint64_t end = cursor + std::min(described::domain().memberPageSize, room);
    std::uint64_t count = 0;
    auto members = description::directory().members(kind, group, cursor, end, count);
    if (!members) return Answer<AccountPage>::missing();
    AccountPage page;
    page.items = std::move(*members);
    page.next = end;
    page.more = end < count;
    return page;
}

}  // namespace

Answer<AccountPage> localGroupMembers(const AccountSource& source, const Account& group,
                                      std::uint64_t cursor) {
    const Answer<Scope> scope = described::scopeOf(source);
    if (!scope.found()) return Answer<AccountPage>::without(scope);
    Answer<AccountPage> page = membersOf(described::localKind(scope.value), group, cursor);
    for (Account& member : page.value.items) {
        if (!member.sid.empty()) member = {{}, {}, member.sid};
    }
    return page;
}

Answer<AccountPage> globalGroupMembers(const AccountSource& source, const Account& group,
                                       std::uint64_t cursor) {
    const Answer<Scope> scope = described::scopeOf(source);
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

}  // namespace host
