#pragma once

/// The plain data of a described machine, as the description states it.

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "runtime/host/description/named_list.h"
#include "runtime/host/facts.h"
#include "runtime/host/verdict.h"

namespace description {

/// A place in a description, for mistakes.
struct Place {
    std::string file;
    std::size_t line = 0;
};

/// Why the machine does not answer a question: a natural cause, with the code that Windows would give.
struct Cause {
    bool any = false;
    bool refused = false;
    std::uint32_t code = 0;
};

/// The codes of Windows that say of a file or a registry key that it is not there.
inline constexpr std::initializer_list<std::uint32_t> notThere = {2, 3};

/// The answer that a cause gives. `codesOfMissing`: the codes that mean "not there" for this question.
template <class Value>
host::Answer<Value> answerOf(const Cause& cause, std::initializer_list<std::uint32_t> codesOfMissing = {}) {
    for (const std::uint32_t code : codesOfMissing) {
        if (cause.code == code) return host::Answer<Value>::missing();
    }
    return cause.refused ? host::Answer<Value>::refused(cause.code) : host::Answer<Value>::failed(cause.code);
}

// --- Registry ----------------------------------------------------------------------------------------------

/// The value types of the registry that are more than raw data here.
enum RegistryType : std::uint32_t {
    registryText = 1,
    registryExpandedText = 2,
    registryBinary = 3,
    registryNumber = 4
};

struct RegistryData {
    std::uint32_t type = registryBinary;
    std::string bytes;  ///< as stored: texts in UTF-16LE, with or without terminator
    Cause cause;
};

struct RegistryKey {
    std::map<std::wstring, RegistryData> values;  ///< by folded name; the default value by an empty one
    Cause cause;                                  ///< holds for the keys below as well
};

/// HKEY_LOCAL_MACHINE: keys by folded path without the hive. Every key above a key is there too.
using Registry = std::map<std::wstring, RegistryKey>;

// --- Files -------------------------------------------------------------------------------------------------

struct FileContents {
    std::string bytes;
    Cause cause;
};

struct ImageVersion {
    host::FileVersion version;
    Cause cause;
};

/// What stands under one path.
struct FileEntry {
    bool directory = false;
    Cause cause;
};

/// Everything by folded full path without "\" at the end.
struct FileTree {
    std::map<std::wstring, FileEntry> entries;
    std::map<std::wstring, FileContents> contents;
    std::map<std::wstring, ImageVersion> versions;
};

// --- System and user ---------------------------------------------------------------------------------------

struct SystemDescription {
    host::SystemFacts facts;
    std::wstring windowsDirectory = L"C:\\Windows";
    std::wstring currentDirectory = L"C:\\Users\\Public";
    host::CodePageFacts codePage{1252, L"ANSI - Latin I"};
    std::vector<host::AdapterFacts> adapters;
    std::optional<host::Sid> sid;        ///< of the computer; made up when the description does not give it
    std::optional<host::LocalTime> now;  ///< without it, the clock of the computer on which this program runs
    Cause systemCause, adaptersCause, codePageCause;
    std::map<std::wstring, std::wstring> environment;  ///< by folded name
};

struct UserDescription {
    std::wstring name = L"user";  ///< without domain
    std::wstring domain;          ///< empty: this computer
    bool administrator = false;
};

// --- Accounts ----------------------------------------------------------------------------------------------

/// A list that breaks off: asked for an item from `after` on, the machine answers with the cause.
struct ListCause {
    Cause cause;
    std::uint64_t after = 0;
};

struct UserEntry {
    std::wstring name;
    std::optional<host::Sid>
        sid;  ///< made up when the description does not give it; empty: cannot be looked up
};

/// `count` users named by a pattern: prefix, number from 1 with at least `digits` digits, suffix.
struct GeneratedUsers {
    std::uint64_t count = 0;
    std::wstring prefix, suffix;
    unsigned int digits = 0;
};

struct UserList {
    NamedList<UserEntry> listed;
    std::vector<GeneratedUsers> generated;
    ListCause cause;
};

struct MemberName {
    std::wstring text;  ///< as written: name, DOMAIN\name, SID or "*"
    Place place;
};

struct GroupEntry {
    std::wstring name;
    std::wstring domain;  ///< empty: that of its list
    std::optional<host::Sid> sid;
    std::vector<MemberName> members;
};

struct GroupList {
    NamedList<GroupEntry> listed;
    ListCause cause;
    std::map<std::wstring, Cause>
        accountCauses;  ///< by folded account name or "*": whose groups cannot be asked for
};

struct DomainDescription {
    bool joined = false;
    std::wstring name;  ///< NetBIOS form
    std::wstring dnsName;
    std::wstring workgroup = L"WORKGROUP";
    std::wstring controller, primary;
    bool isController = false;
    std::optional<host::Sid> sid;  ///< made up when the description does not give it
    Cause unreachable;
    Cause membershipCause;
    std::uint64_t pageSize = 100;
    std::uint64_t memberPageSize = 100000;
};

// --- Volumes, cluster, services ----------------------------------------------------------------------------

struct VolumeDescription {
    host::VolumeFacts facts;
    Cause cause;  ///< also of the files on it
};

struct VolumeList {
    std::map<std::wstring, VolumeDescription> volumes;  ///< by folded name as written ("c:")
    Cause cause;
};

struct ClusterDescription {
    host::ClusterFacts facts;
    Cause cause;
};

struct ServiceDescription {
    host::ServiceFacts facts;
    Cause cause;
};

// --- Planned failures --------------------------------------------------------------------------------------

struct PlannedFailure {
    std::wstring operation;
    std::optional<std::wstring> subject;  ///< folded; without it, every subject
    std::uint64_t first = 1;              ///< the calls that fail, counted from 1
    std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
    host::Verdict outcome;
};

// --- The whole ---------------------------------------------------------------------------------------------

struct Machine {
    SystemDescription system;
    UserDescription user;
    DomainDescription domain;
    UserList users, domainUsers;
    GroupList groups, domainGroups, globalGroups;
    Registry registry;
    FileTree files;
    VolumeList volumes;
    std::optional<ClusterDescription> cluster;
    std::map<std::wstring, ServiceDescription> services;  ///< by folded name
    std::vector<PlannedFailure> failures;
};

}  // namespace description
