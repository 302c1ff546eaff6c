#include "tests/windows/made_up/netapi32/security.h"

#include "runtime/host/os.h"

#include <ntsecapi.h>

#include <bit>
#include <cstring>
#include <cwchar>
#include <optional>

#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/shared/imports.h"

namespace made_up {

namespace {

using description::Scope;

constexpr NTSTATUS someNotMapped = 0x00000107;
constexpr NTSTATUS noneMapped = std::bit_cast<NTSTATUS>(0xC0000073U);

/// The status that stands for an error code of the system.
NTSTATUS statusOf(DWORD code) {
    return code == ERROR_SUCCESS ? 0 : std::bit_cast<NTSTATUS>(0xC0010000U | code);
}

SID_NAME_USE useOf(const host::Account& account) {
    const host::Sid& sid = account.sid;
    if (sid.subAuthorityCount == 1) return SidTypeWellKnownGroup;
    for (const auto kind : {description::GroupKind::local, description::GroupKind::domainLocal,
                            description::GroupKind::global}) {
        for (std::uint64_t i = 0; i < directory().groupCount(kind); ++i) {
            if (!(directory().group(kind, i).sid == sid)) continue;
            return kind == description::GroupKind::global ? SidTypeGroup : SidTypeAlias;
        }
    }
    return SidTypeUser;
}

/// Why a question about an account of the domain has no answer here.
DWORD codeOfLookUp(bool ofDomain) {
    if (!ofDomain || machine().domain.isController) return ERROR_SUCCESS;
    count("remote");
    return machine().domain.unreachable.any ? machine().domain.unreachable.code : ERROR_SUCCESS;
}

host::Sid sidFrom(PSID sid) {
    host::Sid copy;
    std::memcpy(static_cast<void*>(&copy), sid, GetLengthSid(sid));
    return copy;
}

/// Copies a text with its terminator; false, with the size that it needs, where there is too little room.
bool put(const std::wstring& text, LPWSTR room, DWORD& size) {
    const auto needed = static_cast<DWORD>(text.size() + 1);
    const bool fits = size >= needed;
    size = fits ? needed - 1 : needed;
    if (fits) std::wcscpy(room, text.c_str());
    return fits;
}

BOOL failed(DWORD code) {
    SetLastError(code);
    return FALSE;
}

// --- Names and SIDs one by one -----------------------------------------------------------------------------

BOOL WINAPI lookupSid(LPCWSTR server, PSID sid, LPWSTR name, LPDWORD nameSize, LPWSTR domain,
                      LPDWORD domainSize, PSID_NAME_USE use) {
    const Oddity oddity = oddityOf("LookupAccountSidW", isRemote(server));
    if (oddity.error != ERROR_SUCCESS) return failed(oddity.error);
    const host::Sid asked = sidFrom(sid);
    std::optional<host::Account> account;
    const bool isBuiltin = asked.subAuthorityCount == 1 && asked.subAuthorities[0] == 32;
    if (isBuiltin) account = host::Account{L"BUILTIN", L"BUILTIN", asked};
    if (const DWORD code = codeOfLookUp(directory().isOfDomain(asked)); code != ERROR_SUCCESS)
        return failed(code);
    if (!account) account = directory().accountOfSid(asked);
    if (!account) return failed(ERROR_NONE_MAPPED);
    *use = isBuiltin ? SidTypeDomain : useOf(*account);
    const bool nameFits = put(account->name, name, *nameSize);
    const bool domainFits = put(account->domain, domain, *domainSize);
    return nameFits && domainFits ? TRUE : failed(ERROR_INSUFFICIENT_BUFFER);
}

std::optional<host::Account> accountNamed(const std::wstring& fullName) {
    std::optional<host::Account> account = directory().accountOfName(fullName);
    if (account && account->sid.empty()) account.reset();
    return account;
}

BOOL WINAPI lookupName(LPCWSTR, LPCWSTR name, PSID sid, LPDWORD sidSize, LPWSTR domain, LPDWORD domainSize,
                       PSID_NAME_USE use) {
    const Oddity oddity = oddityOf("LookupAccountNameW", false);
    if (oddity.error != ERROR_SUCCESS) return failed(oddity.error);
    const std::wstring fullName = name;
    const bool ofDomain = directory().isDomainName(fullName.substr(0, fullName.find(L'\\')));
    if (const DWORD code = codeOfLookUp(ofDomain); code != ERROR_SUCCESS) return failed(code);
    auto account = accountNamed(fullName);
    if (!account) return failed(ERROR_NONE_MAPPED);
    *use = useOf(*account);
    const DWORD needed = GetLengthSid(&account->sid);
    const bool sidFits = *sidSize >= needed;
    *sidSize = needed;
    const bool domainFits = put(account->domain, domain, *domainSize);
    if (!sidFits || !domainFits) return failed(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(sid, &account->sid, needed);
    return TRUE;
}

// --- The policy --------------------------------------------------------------------------------------------

std::wstring textOf(const LSA_UNICODE_STRING& text) {
    return {text.Buffer, text.Length / sizeof(wchar_t)};
}

/// What a policy handle stands for.
struct Policy {
    wchar_t server[64];
};

NTSTATUS WINAPI openPolicy(PLSA_UNICODE_STRING system, PLSA_OBJECT_ATTRIBUTES, ACCESS_MASK,
                           PLSA_HANDLE handle) {
    const std::wstring server = system != nullptr ? textOf(*system) : L"";
    const Call call("LsaOpenPolicy", server.c_str());
    if (call.code() != ERROR_SUCCESS) return statusOf(call.code());
    auto* policy = reinterpret_cast<Policy*>(memory(sizeof(Policy)));
    std::wcsncpy(policy->server, server.c_str(), std::size(policy->server) - 1);
    *handle = policy;
    return 0;
}

NTSTATUS WINAPI freeMemory(PVOID memory) {
    giveBack(memory);
    return 0;
}

NTSTATUS WINAPI queryPolicy(LSA_HANDLE handle, POLICY_INFORMATION_CLASS kind, PVOID* buffer) {
    const Call call("LsaQueryInformationPolicy", static_cast<Policy*>(handle)->server);
    *buffer = nullptr;
    if (call.code() != ERROR_SUCCESS) return statusOf(call.code());
    if (kind != PolicyAccountDomainInformation) return statusOf(ERROR_INVALID_PARAMETER);
    struct Record {
        POLICY_ACCOUNT_DOMAIN_INFO info;
        wchar_t* name;
        PSID sid;
    };
    Records<Record> records(1, call.oddity().nullNames);
    const std::wstring name(directory().label(call.scope()));
    records.text(&Record::name, 0, name);
    records.sid(&Record::sid, 0, directory().domainSid(call.scope()));
    auto* record = reinterpret_cast<Record*>(records.piece());
    const auto size = static_cast<USHORT>(name.size() * sizeof(wchar_t));
    record->info.DomainName = {size, size, record->name};
    record->info.DomainSid = record->sid;
    *buffer = record;
    return 0;
}

// --- Names by the thousand ---------------------------------------------------------------------------------

/// Each account has an entry of its own in the list of domains.
BYTE* domainsOf(const std::vector<std::optional<host::Account>>& accounts) {
    std::size_t size = sizeof(LSA_REFERENCED_DOMAIN_LIST) + accounts.size() * sizeof(LSA_TRUST_INFORMATION);
    const std::size_t texts = size;
    for (const auto& account : accounts)
        if (account) size += account->domain.size() * sizeof(wchar_t);
    BYTE* piece = memory(size);
    auto* list = reinterpret_cast<LSA_REFERENCED_DOMAIN_LIST*>(piece);
    list->Entries = static_cast<ULONG>(accounts.size());
    list->Domains = reinterpret_cast<LSA_TRUST_INFORMATION*>(list + 1);
    auto* room = reinterpret_cast<wchar_t*>(piece + texts);
    for (std::size_t i = 0; i < accounts.size(); ++i) {
        if (!accounts[i]) continue;
        const std::wstring& name = accounts[i]->domain;
        const auto bytes = static_cast<USHORT>(name.size() * sizeof(wchar_t));
        list->Domains[i].Name = {bytes, bytes, room};
        room = std::copy(name.begin(), name.end(), room);
    }
    return piece;
}

NTSTATUS WINAPI lookupNames(LSA_HANDLE handle, ULONG, ULONG count, PLSA_UNICODE_STRING names,
                            PLSA_REFERENCED_DOMAIN_LIST* domains, PLSA_TRANSLATED_SID2* sids) {
    const Call call("LsaLookupNames2", static_cast<Policy*>(handle)->server);
    *domains = nullptr;
    *sids = nullptr;
    if (call.code() != ERROR_SUCCESS) return statusOf(call.code());
    if (count > 1000) return statusOf(RPC_S_CALL_FAILED);
    std::vector<std::optional<host::Account>> accounts;
    std::size_t known = 0;
    Records<LSA_TRANSLATED_SID2> records(count, call.oddity().nullNames);
    for (ULONG i = 0; i < count; ++i) {
        const auto& account = accounts.emplace_back(accountNamed(textOf(names[i])));
        records[i].Use = account ? useOf(*account) : SidTypeUnknown;
        records[i].DomainIndex = account ? static_cast<LONG>(i) : -1;
        if (account) records.sid(&LSA_TRANSLATED_SID2::Sid, i, account->sid);
        if (account) ++known;
    }
    *domains = reinterpret_cast<PLSA_REFERENCED_DOMAIN_LIST>(domainsOf(accounts));
    if (!call.oddity().nullBuffer) *sids = reinterpret_cast<PLSA_TRANSLATED_SID2>(records.piece());
    if (known == 0) return noneMapped;
    return known == count ? 0 : someNotMapped;
}

// --- The computer ------------------------------------------------------------------------------------------

BOOL WINAPI computerName(COMPUTER_NAME_FORMAT, LPWSTR room, LPDWORD size) {
    return put(machine().system.facts.computerName, room, *size) ? TRUE : failed(ERROR_MORE_DATA);
}

}  // namespace

void replaceImports() {
    replaceImport("ADVAPI32.dll", "LookupAccountSidW", std::bit_cast<void*>(&lookupSid));
    replaceImport("ADVAPI32.dll", "LookupAccountNameW", std::bit_cast<void*>(&lookupName));
    replaceImport("ADVAPI32.dll", "LsaOpenPolicy", std::bit_cast<void*>(&openPolicy));
    replaceImport("ADVAPI32.dll", "LsaClose", std::bit_cast<void*>(&freeMemory));
    replaceImport("ADVAPI32.dll", "LsaFreeMemory", std::bit_cast<void*>(&freeMemory));
    replaceImport("ADVAPI32.dll", "LsaQueryInformationPolicy", std::bit_cast<void*>(&queryPolicy));
    replaceImport("ADVAPI32.dll", "LsaLookupNames2", std::bit_cast<void*>(&lookupNames));
    replaceImport("KERNEL32.dll", "GetComputerNameExW", std::bit_cast<void*>(&computerName));
}

}  // namespace made_up
