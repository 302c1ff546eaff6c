#include "runtime/host/description/known_sids.h"

#include "runtime/host/letter_case.h"

namespace description {

namespace {

struct NamedRid {
    std::wstring_view name;
    std::uint32_t rid;
};

constexpr NamedRid builtinGroups[] = {
    {L"Administrators", 544},
    {L"Users", 545},
    {L"Guests", 546},
    {L"Power Users", 547},
    {L"Account Operators", 548},
    {L"Server Operators", 549},
    {L"Print Operators", 550},
    {L"Backup Operators", 551},
    {L"Replicator", 552},
    {L"Pre-Windows 2000 Compatible Access", 554},
    {L"Remote Desktop Users", 555},
    {L"Network Configuration Operators", 556},
    {L"Incoming Forest Trust Builders", 557},
    {L"Performance Monitor Users", 558},
    {L"Performance Log Users", 559},
    {L"Windows Authorization Access Group", 560},
    {L"Terminal Server License Servers", 561},
    {L"Distributed COM Users", 562},
    {L"IIS_IUSRS", 568},
    {L"Cryptographic Operators", 569},
    {L"Event Log Readers", 573},
    {L"Certificate Service DCOM Access", 574},
    {L"RDS Remote Access Servers", 575},
    {L"RDS Endpoint Servers", 576},
    {L"RDS Management Servers", 577},
    {L"Hyper-V Administrators", 578},
    {L"Access Control Assistance Operators", 579},
    {L"Remote Management Users", 580},
    {L"System Managed Accounts Group", 581},
    {L"Storage Replica Administrators", 582},
    {L"Device Owners", 583},
};

constexpr NamedRid fixedAccounts[] = {
    {L"Administrator", 500},
    {L"Guest", 501},
    {L"krbtgt", 502},
    {L"DefaultAccount", 503},
    {L"WDAGUtilityAccount", 504},
    {L"Domain Admins", 512},
    {L"Domain Users", 513},
    {L"Domain Guests", 514},
    {L"Domain Computers", 515},
    {L"Domain Controllers", 516},
    {L"Cert Publishers", 517},
    {L"Schema Admins", 518},
    {L"Enterprise Admins", 519},
    {L"Group Policy Creator Owners", 520},
    {L"Read-only Domain Controllers", 521},
    {L"Cloneable Domain Controllers", 522},
    {L"Protected Users", 525},
    {L"Key Admins", 526},
    {L"Enterprise Key Admins", 527},
    {L"RAS and IAS Servers", 553},
    {L"Allowed RODC Password Replication Group", 571},
    {L"Denied RODC Password Replication Group", 572},
};

struct WorldAccount {
    std::wstring_view domain, name;
    std::uint8_t authority;
    std::uint32_t rid;
};

constexpr WorldAccount worldAccounts[] = {
    {L"", L"Everyone", 1, 0},
    {L"", L"CREATOR OWNER", 3, 0},
    {L"", L"CREATOR GROUP", 3, 1},
    {L"NT AUTHORITY", L"NETWORK", 5, 2},
    {L"NT AUTHORITY", L"BATCH", 5, 3},
    {L"NT AUTHORITY", L"INTERACTIVE", 5, 4},
    {L"NT AUTHORITY", L"SERVICE", 5, 6},
    {L"NT AUTHORITY", L"ANONYMOUS LOGON", 5, 7},
    {L"NT AUTHORITY", L"ENTERPRISE DOMAIN CONTROLLERS", 5, 9},
    {L"NT AUTHORITY", L"Authenticated Users", 5, 11},
    {L"NT AUTHORITY", L"IUSR", 5, 17},
    {L"NT AUTHORITY", L"SYSTEM", 5, 18},
    {L"NT AUTHORITY", L"LOCAL SERVICE", 5, 19},
    {L"NT AUTHORITY", L"NETWORK SERVICE", 5, 20},
};

template <std::size_t count>
std::optional<std::uint32_t> ridNamed(const NamedRid (&table)[count], std::wstring_view name) {
    for (const NamedRid& known : table) {
        if (host::equalIgnoringCase(known.name, name)) return known.rid;
    }
    return std::nullopt;
}

host::Sid ntSid(std::initializer_list<std::uint32_t> subAuthorities) {
    host::Sid sid;
    sid.authority[5] = 5;
    for (const std::uint32_t part : subAuthorities)
        sid.subAuthorities[sid.subAuthorityCount++] = part;
    return sid;
}

host::Account accountOf(const WorldAccount& known) {
    host::Account account{std::wstring(known.domain), std::wstring(known.name), ntSid({known.rid})};
    account.sid.authority[5] = known.authority;
    return account;
}

}  // namespace

std::optional<std::uint32_t> builtinGroup(std::wstring_view name) {
    return ridNamed(builtinGroups, name);
}

std::optional<std::uint32_t> fixedAccount(std::wstring_view name) {
    return ridNamed(fixedAccounts, name);
}

host::Sid builtinSid(std::uint32_t rid) {
    return ntSid({32, rid});
}

host::Sid madeUpDomainSid(std::wstring_view name) {
    std::uint64_t hash = host::emptyHash;
    std::uint32_t parts[3] = {};
    for (std::uint32_t& part : parts) {
        hash = host::hashIgnoringCase(name, hash);
        hash ^= hash >> 29U;
        part = 1000000000U + static_cast<std::uint32_t>(hash % 3000000000U);
    }
    return ntSid({21, parts[0], parts[1], parts[2]});
}

host::Sid withRid(host::Sid domain, std::uint32_t rid) {
    if (domain.subAuthorityCount < host::Sid::maximumSubAuthorities) {
        domain.subAuthorities[domain.subAuthorityCount++] = rid;
    }
    return domain;
}

std::optional<host::Account> worldAccount(const host::Sid& sid) {
    for (const WorldAccount& known : worldAccounts) {
        host::Account account = accountOf(known);
        if (account.sid == sid) return account;
    }
    return std::nullopt;
}

std::optional<host::Account> worldAccount(std::wstring_view name) {
    for (const WorldAccount& known : worldAccounts) {
        const std::wstring fullName = std::wstring(known.domain) + L"\\" + std::wstring(known.name);
        if (host::equalIgnoringCase(known.name, name) || host::equalIgnoringCase(fullName, name))
            return accountOf(known);
    }
    return std::nullopt;
}

}  // namespace description
