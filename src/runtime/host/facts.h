#pragma once

/// The nouns of the seam: what the runtime learns from the operating system. Texts are UTF-16 units in
/// `wchar_t`.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "runtime/host/answer.h"

namespace host {

// --- Registry
// -------------------------------------------------------------------------------------------------------

struct RegistryValue {
    enum class Kind { text, number, other };
    Kind kind = Kind::other;
    std::wstring text;         ///< Kind::text: up to the first NUL, whatever the stored size
    std::uint32_t number = 0;  ///< Kind::number
    std::wstring typeName;     ///< the type as Windows names it ("REG_BINARY"), for messages
};

/// The name of a type as Windows has it ("REG_BINARY"); for a number of another size than four bytes with
/// that size
/// ("REG_DWORD of 1 byte").
std::wstring registryTypeName(std::uint32_t type, std::size_t size);

// --- Files
// ----------------------------------------------------------------------------------------------------------

enum class FileKind { file, directory };

/// The file version of an image's version resource.
struct FileVersion {
    std::uint16_t major = 0, minor = 0, build = 0, revision = 0;
};

// --- System
// ---------------------------------------------------------------------------------------------------------

struct LocalTime {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
    int offsetMinutes = 0;  ///< local time minus UTC
};

struct SystemFacts {
    std::wstring computerName;  ///< NetBIOS form
    std::wstring windowsName;   ///< "Windows Server 2022 Standard", without version or build
    std::wstring release;       ///< "23H2"; empty when the system has none
    std::uint32_t major = 0, minor = 0, build = 0, revision = 0;  ///< 10.0.20348.2113
    bool server = false;
    bool is32Bit = false;
    std::wstring architecture;      ///< "x64", "ARM64", "x86"
    std::wstring processorName;     ///< may be empty
    std::uint32_t processors = 0;   ///< logical processors over all groups; 0: unknown
    std::uint64_t memoryBytes = 0;  ///< installed memory; 0: unknown
    std::optional<LocalTime> startTime;
};

/// A network adapter that is up, with its unicast addresses; loopback is left out.
struct AdapterFacts {
    std::wstring name;
    std::vector<std::wstring> addresses;
};

struct CodePageFacts {
    std::uint32_t number = 0;
    std::wstring name;  ///< "ANSI - Latin I"; may be empty
};

// --- Accounts
// -------------------------------------------------------------------------------------------------------

/// A security identifier in the system's own binary layout: its first `8 + 4 * subAuthorityCount` bytes are
/// what Windows calls a SID.
struct Sid {
    static constexpr unsigned maximumSubAuthorities = 15;
    std::uint8_t revision = 1;
    std::uint8_t subAuthorityCount = 0;
    std::array<std::uint8_t, 6> authority{};
    std::array<std::uint32_t, maximumSubAuthorities> subAuthorities{};

    bool empty() const { return subAuthorityCount == 0; }
    bool operator==(const Sid& other) const;
    bool operator<(const Sid& other) const;
};

/// A user or a group. Without a name the system could not resolve it: only the SID is known. Without a SID it
/// could not be looked up: only the name is known.
struct Account {
    std::wstring domain;  ///< "CORP", the computer's name, "BUILTIN"
    std::wstring name;
    Sid sid;

    bool operator==(const Account& other) const = default;
};

/// Whether two accounts are the same: by their SIDs; where one of them has none, by domain and name, in
/// capital or small letters.
bool isSameAccount(const Account& left, const Account& right);

/// The domain of the accounts that a machine keeps by itself: its own, or, of a domain controller, its
/// domain.
struct AccountDomain {
    std::wstring name;
    Sid sid;

    /// Whether the SID is one of an account of this domain.
    bool has(const Sid& account) const;
};

/// Where accounts are asked for: at this computer, or at a domain controller.
struct AccountSource {
    std::wstring server;  ///< the controller's name without leading "\\"; empty: this computer
};

/// One page of a long list.
template <class Item>
struct Page {
    std::vector<Item> items;
    std::uint64_t next = 0;  ///< the cursor that continues the list
    bool more = false;
    bool nextIsHandle = false;  ///< `next` is the system's own and may be the same for every page
};
using AccountPage = Page<Account>;

struct Membership {
    bool joined = false;  ///< member of a domain, or a domain controller itself
    bool domainController = false;
    std::wstring domainName;     ///< NetBIOS form; the workgroup's name when not joined
    std::wstring dnsDomainName;  ///< may be empty
};

// --- Volumes
// --------------------------------------------------------------------------------------------------------

enum class DriveType { unknown, fixed, removable, network, optical, ramDisk };

struct VolumeFacts {
    std::wstring device;                ///< "\\?\Volume{...}\"
    std::optional<wchar_t> letter;      ///< in capitals
    std::vector<std::wstring> folders;  ///< mount folders, sorted, each with "\" at its end
    Answer<Done> paths = Done{};        ///< found: letter and folders are all that there are
    DriveType type = DriveType::unknown;
    Answer<std::wstring>
        fileSystem;  ///< as the system spells it; `failed` with a code for a drive that cannot tell
    Answer<std::wstring> label;  ///< may be found and empty
    Answer<std::uint64_t> sizeBytes;
    Answer<std::uint64_t> freeBytes;
};

// --- Cluster
// --------------------------------------------------------------------------------------------------------

struct ClusterNode {
    std::wstring name;
    std::wstring
        state;  ///< "up", "down", "paused", "joining", "unknown", the last with a code where there is one
};

struct ClusterGroup {
    std::wstring name;
    std::wstring owner;  ///< the node that owns it; may be empty
    std::wstring state;  ///< "online", "offline", "failed", "partly online", "pending", "unknown" as above
};

struct ClusterFacts {
    std::wstring name;
    std::vector<ClusterNode> nodes;
    std::vector<ClusterGroup> groups;
};

// --- Services
// -------------------------------------------------------------------------------------------------------

struct ServiceFacts {
    bool running = false;
    std::wstring state;      ///< "running", "stopped", "start pending", ...
    std::wstring imagePath;  ///< absolute path of the image that the service names
};

}  // namespace host
