#include "runtime/host/computer_name.h"
#include "runtime/host/host.h"
#include "runtime/host/text.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/windows_version.h"

namespace host {

namespace {

struct RoleMemory {
    using Handle = BYTE*;
    static Handle none() noexcept { return nullptr; }
    static void close(Handle handle) noexcept {
        if (windows::netApi().roleFree) windows::netApi().roleFree(handle);
    }
};

DWORD membershipByRole(Membership& membership) {
    windows::Owner<RoleMemory> memory;
    const DWORD code =
        windows::netApi().roleInformation.code(nullptr, DsRolePrimaryDomainInfoBasic, memory.receive());
    if (code != ERROR_SUCCESS) return code;
    if (memory.get() == nullptr) return ERROR_INVALID_DATA;
    const auto& info = *reinterpret_cast<const DSROLE_PRIMARY_DOMAIN_INFO_BASIC*>(memory.get());
    const auto role = info.MachineRole;
    membership.domainController =
        role == DsRole_RoleBackupDomainController || role == DsRole_RolePrimaryDomainController;
    membership.joined = membership.domainController || role == DsRole_RoleMemberWorkstation ||
                        role == DsRole_RoleMemberServer;
    membership.domainName = textOrEmpty(info.DomainNameFlat);
    membership.dnsDomainName = textOrEmpty(info.DomainNameDns);
    return membership.joined && membership.domainName.empty() ? ERROR_INVALID_DATA : ERROR_SUCCESS;
}

DWORD membershipByJoin(Membership& membership) {
    windows::Owner<windows::NetBufferTraits<wchar_t*>> name;
    NETSETUP_JOIN_STATUS status = NetSetupUnknownStatus;
    const DWORD code = windows::netApi().getJoinInformation.code(nullptr, name.receive(), &status);
    if (code != ERROR_SUCCESS) return code;
    if (status == NetSetupUnknownStatus) return ERROR_INVALID_STATE;
    const Answer<windows::KernelVersion> version = windows::kernelVersion();
    membership.joined = status == NetSetupDomainName;
    membership.domainController =
        version.found() && version.value.role == windows::KernelVersion::Role::domainController;
    membership.domainName = textOrEmpty(name.get());
    return membership.joined && membership.domainName.empty() ? ERROR_INVALID_DATA : ERROR_SUCCESS;
}

/// "\\dc01.corp.example" is "dc01.corp.example".
std::wstring withoutBackslashes(const wchar_t* name) {
    const std::wstring text = textOrEmpty(name);
    return text.substr(std::min(text.find_first_not_of(L'\\'), text.size()));
}

}  // namespace

Answer<Membership> membership() {
    Membership membership;
    if (membershipByRole(membership) == ERROR_SUCCESS) return membership;
    membership = {};
    const DWORD code = membershipByJoin(membership);
    return code == ERROR_SUCCESS ? membership : windows::unanswered<Membership>(code);
}

Answer<std::wstring> domainController(const Membership& membership, bool primary, bool rediscover) {
    if (!membership.joined) return {};
    // The flat name is of use only where such names are still broadcast. Without the kind of the name, both
    // kinds would be tried, each with its own delays.
    const bool dns = !membership.dnsDomainName.empty();
    const std::wstring& domainName = dns ? membership.dnsDomainName : membership.domainName;
    ULONG flags = dns ? DS_IS_DNS_NAME | DS_RETURN_DNS_NAME : DS_IS_FLAT_NAME;
    if (primary) flags |= DS_PDC_REQUIRED;
    if (rediscover) flags |= DS_FORCE_REDISCOVERY;
    windows::Owner<windows::NetBufferTraits<PDOMAIN_CONTROLLER_INFOW>> info;
    const DWORD code = windows::netApi().getDcName.code(nullptr, domainName.c_str(), nullptr, nullptr, flags,
                                                        info.receive());
    if (code != ERROR_SUCCESS) return windows::unanswered<std::wstring>(code);
    const std::wstring name =
        info.get() != nullptr ? withoutBackslashes(info->DomainControllerName) : std::wstring();
    // No name at all would mean this computer.
    if (name.empty()) return windows::unanswered<std::wstring>(ERROR_DOMAIN_CONTROLLER_NOT_FOUND);
    return primary ? computerName(name) : name;
}

}  // namespace host
