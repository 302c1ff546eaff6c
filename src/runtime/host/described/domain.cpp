#include "runtime/host/computer_name.h"
#include "runtime/host/described/account_source.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

constexpr std::uint32_t noSuchDomain = 1355;

}  // namespace

Answer<Membership> membership() {
    const description::DomainDescription& domain = described::domain();
    if (domain.membershipCause.any) return description::answerOf<Membership>(domain.membershipCause);
    Membership result;
    result.joined = domain.joined;
    result.domainController = domain.joined && domain.isController;
    result.domainName = domain.joined ? domain.name : domain.workgroup;
    if (domain.joined) result.dnsDomainName = domain.dnsName;
    return result;
}

Answer<std::wstring> domainController(const Membership& membership, bool primary, bool) {
    const description::DomainDescription& domain = described::domain();
    if (!membership.joined) return {};
    description::countRemoteQuestion();
    if (!description::directory().isDomainName(membership.domainName))
        return Answer<std::wstring>::failed(noSuchDomain);
    if (domain.unreachable.any) return description::answerOf<std::wstring>(domain.unreachable);
    const std::wstring& name = primary && !domain.primary.empty() ? domain.primary : domain.controller;
    if (!name.empty()) return primary ? computerName(name) : name;
    if (domain.isController) return description::machine().system.facts.computerName;
    return Answer<std::wstring>::failed(noSuchDomain);
}

}  // namespace host
