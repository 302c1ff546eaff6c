#include "runtime/util/QVDomainController.h"

#include <optional>

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"
#include "runtime/util/DomainLocalGroups.h"
#include "runtime/util/DomainSession.h"

namespace {

struct Instance {
    CString domainName;
    DomainLocalGroups domainLocalGroups;
};

std::optional<Instance> instance;

}  // namespace

int QVDomainController::mf_isJoined() {
    if (operation::answersZero(L"QVDomainController::mf_isJoined")) return 0;
    return DomainSession::membership().joined ? 1 : 0;
}

const CString& QVDomainController::mf_getDomainName() {
    static const CString empty;
    if (operation::answersZero(L"QVDomainController::mf_getDomainName")) return empty;
    const host::Membership& membership = DomainSession::membership();
    instance->domainName = CString(membership.domainName);
    return instance->domainName;
}

const CString QVDomainController::mf_getPDCName() {
    if (operation::answersZero(L"QVDomainController::mf_getPDCName")) return {};
    const auto name = host::domainController(DomainSession::membership(), true, false);
    if (!name.found()) raise(name.failure, L"no primary domain controller was found");
    return CString(name.value);
}

void QVDomainController::start() {
    DomainSession::start();
    instance.emplace();
}

void QVDomainController::stop() noexcept {
    instance.reset();
    DomainSession::stop();
}

host::Answer<std::vector<host::Account>> QVDomainController::domainLocalGroupsOf(
    const host::Account& account) {
    DomainSession::requireStarted();
    return instance->domainLocalGroups.of(account);
}
