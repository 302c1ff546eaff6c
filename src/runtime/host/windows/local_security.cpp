#include "runtime/host/windows/local_security.h"

#include "runtime/host/os.h"

#include <ntsecapi.h>

#include <algorithm>

#include "runtime/host/text.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/net_api.h"
#include "runtime/host/windows/sids.h"

namespace host::windows {

namespace {

template <class Pointer>
using LsaMemory = Owner<NullableTraits<Pointer, LsaFreeMemory>>;
using PolicyHandle = Owner<NullableTraits<LSA_HANDLE, LsaClose>>;

constexpr NTSTATUS someNotMapped = 0x00000107;
constexpr NTSTATUS noneMapped = std::bit_cast<NTSTATUS>(0xC0000073U);

std::wstring textOf(const LSA_UNICODE_STRING& text) {
    return text.Buffer != nullptr ? std::wstring(text.Buffer, text.Length / sizeof(wchar_t)) : std::wstring();
}

/// Refers to `text`, which must outlive it.
LSA_UNICODE_STRING reference(std::wstring& text) {
    constexpr std::size_t longest = 0x7FFE;
    LSA_UNICODE_STRING string{};
    string.Buffer = text.data();
    string.Length = static_cast<USHORT>(std::min(text.size(), longest) * sizeof(wchar_t));
    string.MaximumLength = string.Length;
    return string;
}

DWORD openPolicy(const std::wstring& server, ACCESS_MASK access, PolicyHandle& policy) {
    LSA_OBJECT_ATTRIBUTES attributes{};
    std::wstring name = server.empty() ? server : L"\\\\" + server;
    LSA_UNICODE_STRING system = reference(name);
    return LsaNtStatusToWinError(
        LsaOpenPolicy(server.empty() ? nullptr : &system, &attributes, access, policy.receive()));
}

/// Accounts need the name and the SID of their domain.
Answer<AccountDomain> wholeDomain(AccountDomain domain) {
    if (domain.name.empty() || domain.sid.empty()) return unanswered<AccountDomain>(ERROR_INVALID_DATA);
    return domain;
}

Answer<AccountDomain> accountDomainHere() {
    PolicyHandle policy;
    const DWORD opened = openPolicy({}, POLICY_VIEW_LOCAL_INFORMATION, policy);
    if (opened != ERROR_SUCCESS) return unanswered<AccountDomain>(opened);
    void* memory = nullptr;
    const NTSTATUS status = LsaQueryInformationPolicy(policy.get(), PolicyAccountDomainInformation, &memory);
    const LsaMemory<void*> owner(memory);
    if (status != 0) return unanswered<AccountDomain>(LsaNtStatusToWinError(status));
    if (memory == nullptr) return unanswered<AccountDomain>(ERROR_INVALID_DATA);
    const auto& info = *static_cast<const POLICY_ACCOUNT_DOMAIN_INFO*>(memory);
    return wholeDomain({textOf(info.DomainName), sidFrom(info.DomainSid)});
}

Answer<AccountDomain> accountDomainAt(const std::wstring& server) {
    constexpr DWORD domainLevel = 2;
    NetItems<USER_MODALS_INFO_2> memory;
    const DWORD code = netApi().userModalsGet.code(ServerName(server).get(), domainLevel, memory.receive());
    if (code != ERROR_SUCCESS) return unanswered<AccountDomain>(code);
    if (memory.first() == nullptr) return unanswered<AccountDomain>(ERROR_INVALID_DATA);
    const USER_MODALS_INFO_2& info = *memory.first();
    return wholeDomain({textOrEmpty(info.usrmod2_domain_name), sidFrom(info.usrmod2_domain_id)});
}

Account accountOf(const LSA_TRANSLATED_SID2& translated, const LSA_REFERENCED_DOMAIN_LIST* domains) {
    Account account;
    const bool unknown = translated.Use == SidTypeUnknown || translated.Use == SidTypeInvalid ||
                         translated.Use == SidTypeDomain;
    if (unknown) return account;
    account.sid = sidFrom(translated.Sid);
    const auto index = static_cast<ULONG>(translated.DomainIndex);
    if (domains != nullptr && translated.DomainIndex >= 0 && index < domains->Entries) {
        account.domain = textOf(domains->Domains[index].Name);
    }
    return account;
}

std::wstring withoutDomain(const std::wstring& fullName) {
    return fullName.substr(fullName.find(L'\\') + 1);
}

}  // namespace

Answer<AccountDomain> accountDomain(const std::wstring& server) {
    return server.empty() ? accountDomainHere() : accountDomainAt(server);
}

std::wstring builtinDomainName(const std::wstring& server) {
    Sid builtin;
    builtin.authority = SECURITY_NT_AUTHORITY;
    builtin.subAuthorityCount = 1;
    builtin.subAuthorities[0] = SECURITY_BUILTIN_DOMAIN_RID;
    wchar_t name[257] = L"", domain[257] = L"";
    DWORD nameSize = 257, domainSize = 257;
    SID_NAME_USE use = SidTypeUnknown;
    const bool known = LookupAccountSidW(ServerName(server).get(), systemForm(builtin), name, &nameSize,
                                         domain, &domainSize, &use) != 0;
    return known && domain[0] != L'\0' ? domain : L"BUILTIN";
}

Answer<std::vector<Account>> accountsOfNames(const std::wstring& server,
                                             const std::vector<std::wstring>& fullNames) {
    using Accounts = std::vector<Account>;
    PolicyHandle policy;
    const DWORD opened = openPolicy(server, POLICY_LOOKUP_NAMES, policy);
    if (opened != ERROR_SUCCESS) return unanswered<Accounts>(opened);

    std::vector<std::wstring> asked = fullNames;
    std::vector<LSA_UNICODE_STRING> references;
    references.reserve(asked.size());
    for (std::wstring& name : asked)
        references.push_back(reference(name));
    LsaMemory<PLSA_REFERENCED_DOMAIN_LIST> domains;
    LsaMemory<PLSA_TRANSLATED_SID2> translated;
    const NTSTATUS status = LsaLookupNames2(policy.get(), 0, static_cast<ULONG>(references.size()),
                                            references.data(), domains.receive(), translated.receive());
    if (status != 0 && status != someNotMapped && status != noneMapped) {
        return unanswered<Accounts>(LsaNtStatusToWinError(status));
    }
    Accounts accounts(fullNames.size());
    for (std::size_t i = 0; i < accounts.size(); ++i) {
        if (status != noneMapped && translated) accounts[i] = accountOf(translated.get()[i], domains.get());
        accounts[i].name = withoutDomain(fullNames[i]);
    }
    return accounts;
}

}  // namespace host::windows
