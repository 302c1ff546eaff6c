#include "tests/windows/made_up/netapi32/call.h"

#include <algorithm>

#include "runtime/host/letter_case.h"

namespace made_up {

using description::Scope;

namespace {

const description::DomainDescription& domain() {
    return machine().domain;
}

/// Whether `server` is the computer `name`, alone or followed by the domain's DNS name.
bool isComputer(const std::wstring& server, const std::wstring& name) {
    if (name.empty()) return false;
    return host::equalIgnoringCase(server, name) ||
           host::equalIgnoringCase(server, name + L"." + domain().dnsName);
}

bool isHere(const std::wstring& server) {
    return server.empty() || isComputer(server, machine().system.facts.computerName);
}

}  // namespace

std::wstring serverName(const wchar_t* server) {
    const std::wstring name = server != nullptr ? server : L"";
    return name.starts_with(L"\\\\") ? name.substr(2) : name;
}

bool isRemote(const wchar_t* server) {
    return !isHere(serverName(server));
}

Call::Call(const std::string& function, const wchar_t* server)
    : m_oddity(oddityOf(function, isRemote(server))) {
    m_code = m_oddity.error != ERROR_SUCCESS ? m_oddity.error : locate(serverName(server));
}

DWORD Call::locate(const std::wstring& server) {
    // So the system answers a name with a blank behind it.
    if (server.ends_with(L' ')) return ERROR_ACCESS_DENIED;
    const bool isController = domain().joined && domain().isController;
    if (isHere(server)) {
        m_scope = isController ? Scope::domain : Scope::computer;
        return ERROR_SUCCESS;
    }
    const bool isAnother =
        domain().joined && (isComputer(server, domain().controller) || isComputer(server, domain().primary));
    if (!isAnother) return ERROR_BAD_NETPATH;
    m_scope = Scope::domain;
    return domain().unreachable.any ? domain().unreachable.code : ERROR_SUCCESS;
}

description::GroupKind Call::localGroups() const {
    return m_scope == Scope::computer ? description::GroupKind::local : description::GroupKind::domainLocal;
}

const description::UserList& Call::users() const {
    return m_scope == Scope::computer ? machine().users : machine().domainUsers;
}

const description::GroupList& Call::groups(description::GroupKind kind) const {
    if (kind == description::GroupKind::local) return machine().groups;
    return kind == description::GroupKind::domainLocal ? machine().domainGroups : machine().globalGroups;
}

Part partOf(const Call& call, std::uint64_t start, std::uint64_t total, std::uint64_t most,
            const description::ListCause& cause) {
    Part part;
    if (cause.cause.any && start >= cause.after) {
        part.code = cause.cause.code;
        return part;
    }
    const bool breaksOff = cause.cause.any && cause.after <= total;
    const std::uint64_t readable = breaksOff ? cause.after : total;
    part.first = std::min(start, readable);
    part.end = part.first + std::min(most, readable - part.first);
    part.next = part.end;
    const Oddity& oddity = call.oddity();
    if (oddity.neverEnds) {
        part.first = 0;
        part.end = std::min(most, readable);
        part.next = start + part.end;
    }
    if (oddity.emptyPage) part.next = part.end = part.first;
    if (oddity.standsStill) part.next = start;
    if (oddity.goesRound && part.end == readable) part.next = 0;
    const bool isEnd = part.end == readable && !breaksOff;
    const bool isOdd = oddity.emptyPage || oddity.standsStill || oddity.goesRound || oddity.neverEnds;
    if (!isEnd || isOdd) part.code = ERROR_MORE_DATA;
    return part;
}

}  // namespace made_up
