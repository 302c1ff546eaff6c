#include "runtime/host/described/account_source.h"

#include <algorithm>

#include "runtime/host/description/state.h"
#include "runtime/host/letter_case.h"

namespace described {

namespace {

using description::GroupKind;
using description::Scope;

constexpr std::uint32_t noSuchServer = 53;

/// Whether `server` names the computer `name`, alone or followed by the domain's DNS name.
bool namesComputer(const std::wstring& server, const std::wstring& name) {
    if (name.empty()) return false;
    return host::equalIgnoringCase(server, name) ||
           host::equalIgnoringCase(server, name + L"." + domain().dnsName);
}

}  // namespace

const description::DomainDescription& domain() {
    return description::machine().domain;
}

Scope scopeHere() {
    return domain().joined && domain().isController ? Scope::domain : Scope::computer;
}

host::Answer<Scope> scopeOf(const host::AccountSource& source) {
    if (!source.server.empty()) description::countRemoteQuestion();
    const bool isHere = source.server.empty() ||
                        namesComputer(source.server, description::machine().system.facts.computerName);
    if (isHere) return scopeHere();
    const bool isController = domain().joined && (namesComputer(source.server, domain().controller) ||
                                                  namesComputer(source.server, domain().primary));
    if (!isController) return host::Answer<Scope>::failed(noSuchServer);
    if (domain().unreachable.any) return description::answerOf<Scope>(domain().unreachable);
    return Scope::domain;
}

void countIfRemote(bool isOfDomain) {
    if (isOfDomain && !domain().isController) description::countRemoteQuestion();
}

host::Answer<host::AccountPage> pageOf(std::uint64_t cursor, std::uint64_t count,
                                       const description::ListCause& cause,
                                       const std::function<host::Account(std::uint64_t)>& item) {
    if (cause.cause.any && cursor >= cause.after)
        return description::answerOf<host::AccountPage>(cause.cause);
    const bool breaksOff = cause.cause.any && cause.after <= count;
    const std::uint64_t readable = breaksOff ? cause.after : count;
    host::AccountPage page;
    std::uint64_t index = std::min(cursor, readable);
    const std::uint64_t end = index + std::min(domain().pageSize, readable - index);
    page.items.reserve(static_cast<std::size_t>(end - index));
    for (; index < end; ++index)
        page.items.push_back(item(index));
    page.next = end;
    page.more = end < readable || breaksOff;
    return page;
}

GroupKind localKind(Scope scope) {
    return scope == Scope::computer ? GroupKind::local : GroupKind::domainLocal;
}

const description::GroupList& groupList(GroupKind kind) {
    const description::Machine& machine = description::machine();
    if (kind == GroupKind::local) return machine.groups;
    return kind == GroupKind::domainLocal ? machine.domainGroups : machine.globalGroups;
}

}  // namespace described
