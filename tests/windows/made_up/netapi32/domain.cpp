/// Whether the computer is joined, its domain and the controllers.

#include <cwchar>

#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/netapi32/exports.h"

namespace made_up {

namespace {

const description::DomainDescription& domain() {
    return machine().domain;
}

DSROLE_MACHINE_ROLE roleOf() {
    const bool isServer = machine().system.facts.server;
    if (!domain().joined) return isServer ? DsRole_RoleStandaloneServer : DsRole_RoleStandaloneWorkstation;
    if (!domain().isController) return isServer ? DsRole_RoleMemberServer : DsRole_RoleMemberWorkstation;
    const bool isPrimary = domain().primary == machine().system.facts.computerName;
    return isPrimary ? DsRole_RolePrimaryDomainController : DsRole_RoleBackupDomainController;
}

/// What is wrong with a search for a controller. One with a name of unknown kind tries both kinds, each with
/// its own delays; one for what is no domain keeps its caller waiting for minutes. Neither is forgiven here.
DWORD codeOfSearch(const wchar_t* computer, const wchar_t* name, ULONG flags) {
    const ULONG kind = flags & (DS_IS_FLAT_NAME | DS_IS_DNS_NAME);
    if (kind == (DS_IS_FLAT_NAME | DS_IS_DNS_NAME)) return ERROR_INVALID_FLAGS;
    if (computer != nullptr) return ERROR_INVALID_COMPUTERNAME;
    if (name == nullptr || kind == 0) endProcess("a controller is searched for without the kind of a name\n");
    const bool isFlat = std::wcschr(name, L'.') == nullptr;
    if (kind != (isFlat ? DS_IS_FLAT_NAME : DS_IS_DNS_NAME)) return ERROR_INVALID_DOMAINNAME;
    if (!domain().joined) endProcess("a controller is searched for without a domain\n");
    if (!directory().isDomainName(name)) return ERROR_NO_SUCH_DOMAIN;
    return domain().unreachable.any ? domain().unreachable.code : ERROR_SUCCESS;
}

std::wstring controllerName(ULONG flags) {
    const bool isPrimary = (flags & DS_PDC_REQUIRED) != 0 && !domain().primary.empty();
    const std::wstring& name = isPrimary ? domain().primary : domain().controller;
    if (name.empty() && domain().isController) return machine().system.facts.computerName;
    return name;
}

}  // namespace

}  // namespace made_up

using namespace made_up;

NET_API_STATUS WINAPI KvxModals(LPCWSTR server, DWORD level, LPBYTE* buffer) {
    const Call call("NetUserModalsGet", server);
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != 2) return ERROR_INVALID_LEVEL;
    const Oddity& oddity = call.oddity();
    Records<USER_MODALS_INFO_2> info(1, oddity.nullNames);
    info.text(&USER_MODALS_INFO_2::usrmod2_domain_name, 0, std::wstring(directory().label(call.scope())));
    info.sid(&USER_MODALS_INFO_2::usrmod2_domain_id, 0, directory().domainSid(call.scope()));
    if (!oddity.nullBuffer) *buffer = info.piece();
    return ERROR_SUCCESS;
}

NET_API_STATUS WINAPI KvxJoin(LPCWSTR server, LPWSTR* name, PNETSETUP_JOIN_STATUS status) {
    const Call call("NetGetJoinInformation", server);
    *name = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (domain().membershipCause.any) return domain().membershipCause.code;
    const std::wstring& text = domain().joined ? domain().name : domain().workgroup;
    if (!call.oddity().nullNames) {
        *name = reinterpret_cast<wchar_t*>(memory((text.size() + 1) * sizeof(wchar_t)));
        std::wcscpy(*name, text.c_str());
    }
    *status = domain().joined ? NetSetupDomainName : NetSetupWorkgroupName;
    if (call.oddity().state >= 0) *status = static_cast<NETSETUP_JOIN_STATUS>(call.oddity().state);
    return ERROR_SUCCESS;
}

DWORD WINAPI KvxRole(LPCWSTR server, DSROLE_PRIMARY_DOMAIN_INFO_LEVEL level, PBYTE* buffer) {
    const Call call("DsRoleGetPrimaryDomainInformation", server);
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return call.code();
    if (level != DsRolePrimaryDomainInfoBasic) return ERROR_INVALID_PARAMETER;
    if (domain().membershipCause.any) return domain().membershipCause.code;
    using Info = DSROLE_PRIMARY_DOMAIN_INFO_BASIC;
    const Oddity& oddity = call.oddity();
    Records<Info> info(1, oddity.nullNames);
    info[0].MachineRole = roleOf();
    info.text(&Info::DomainNameFlat, 0, domain().joined ? domain().name : domain().workgroup);
    if (domain().joined && !domain().dnsName.empty()) info.text(&Info::DomainNameDns, 0, domain().dnsName);
    if (!oddity.nullBuffer) *buffer = info.piece();
    return ERROR_SUCCESS;
}

DWORD WINAPI KvxDcName(LPCWSTR computer, LPCWSTR name, GUID*, LPCWSTR, ULONG flags,
                       PDOMAIN_CONTROLLER_INFOW* info) {
    machine();
    count("remote");
    if ((flags & DS_FORCE_REDISCOVERY) != 0) {
        count("DsGetDcNameW rediscovery");
        controllerIsSearchedAnew();
    }
    const Oddity oddity = oddityOf("DsGetDcNameW", false);
    *info = nullptr;
    if (oddity.error != ERROR_SUCCESS) return oddity.error;
    if (const DWORD code = codeOfSearch(computer, name, flags); code != ERROR_SUCCESS) return code;
    const std::wstring controller = controllerName(flags);
    if (controller.empty()) return ERROR_NO_SUCH_DOMAIN;
    using Info = DOMAIN_CONTROLLER_INFOW;
    Records<Info> found(1, oddity.nullNames);
    const bool isDns = (flags & DS_RETURN_DNS_NAME) != 0 && !domain().dnsName.empty();
    found.text(&Info::DomainControllerName, 0,
               L"\\\\" + controller + (isDns ? L"." + domain().dnsName : std::wstring()));
    found.text(&Info::DomainName, 0, name);
    if (!oddity.nullBuffer) *info = reinterpret_cast<Info*>(found.piece());
    return ERROR_SUCCESS;
}
