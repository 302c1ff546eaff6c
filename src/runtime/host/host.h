#pragma once

/// The seam: everything that the runtime asks of the operating system, as facts. No handle, no buffer and no
/// information level crosses it. One host is linked: `windows/` on Windows, `described/` elsewhere, where a
/// machine described in text files answers.
///
/// Questions answer with an `Answer`; none of them throws but for lack of memory. "Windows:" names the calls
/// behind.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/host/facts.h"
#include "runtime/host/verdict.h"

namespace host {

// --- The process
// ----------------------------------------------------------------------------------------------------

/// Prepares the process before anything else runs, and completes its output at the end. One object, for the
/// whole of the program's start function. When the machine's description is faulty, `usable()` is false and
/// standard error names file and line. Windows: SetErrorMode, SetDefaultDllDirectories.
class Process {
public:
#ifdef _WIN32
    Process(int argumentCount, wchar_t** arguments);
#else
    Process(int argumentCount, char** arguments);  ///< arguments in UTF-8
#endif
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool usable() const {
        return m_usable;
    }
    /// The exit status of a program that cannot run over its machine, and of one that an exception ended
    /// which nothing handles. No error value is among them.
    static constexpr int unusableExitStatus = 64;
    static constexpr int abortedExitStatus = 70;

    int argumentCount() const {
        return static_cast<int>(m_pointers.size()) - 1;
    }
    /// Zero-terminated, a null pointer behind the last; owned by this object.
    wchar_t** arguments() {
        return m_pointers.data();
    }

private:
    bool m_usable = true;
    std::vector<std::wstring> m_arguments;
    std::vector<wchar_t*> m_pointers;
};

/// Windows: GetCurrentProcessId.
std::uint32_t processId();

/// Now, by the machine's clock and time zone. Windows: GetSystemTime, GetTimeZoneInformationForYear.
LocalTime localTime();

/// The system's text for an error code, in one line, without line end; "unknown error" when it has none.
/// Windows: FormatMessageW.
std::wstring systemErrorText(std::uint32_t code);

// --- Operations observed
// --------------------------------------------------------------------------------------------

/// Whether any operation can be given another verdict than `proceed`. Always false on Windows.
bool verdictsArePlanned();

/// The same of one operation ("QVRegistry::mf_exists").
bool verdictsArePlanned(const wchar_t* operation);

/// What becomes of `operation`, which is about to begin over `subject`; counts the call.
Verdict verdictOn(const wchar_t* operation, const std::wstring& subject);

// --- Console, log
// ---------------------------------------------------------------------------------------------------

/// Writes to standard output. On a console at once and as it is; into a file or pipe in large blocks, in the
/// console's output code page (UTF-8 outside Windows). False from the first write on that could not be done;
/// later writes are not tried. Windows: WriteConsoleW, WriteFile.
bool writeConsole(std::wstring_view text) noexcept;

/// Brings everything written so far to its destination.
bool flushConsole() noexcept;

/// A file that grows. Closed by the destructor.
class AppendedFile {
public:
    virtual ~AppendedFile() = default;
    AppendedFile() = default;
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;
    /// Appends all bytes and hands them to the operating system before it returns; false when that failed.
    virtual bool append(std::string_view bytes) noexcept = 0;
};

/// Opens (creates) the file `name` in the current directory for appending; others may read it meanwhile. A
/// file that is larger than `rotateAbove` bytes is renamed to `rotatedName` first, which replaces an older
/// one; when that fails, the file grows on. Where the file is not empty and its last line has no end, CR LF
/// is appended to it: what an earlier run could not finish ends there. Windows: CreateFileW, MoveFileExW.
Answer<std::unique_ptr<AppendedFile>> openForAppending(const std::wstring& name, std::uint64_t rotateAbove,
                                                       const std::wstring& rotatedName);

// --- Registry: HKEY_LOCAL_MACHINE, 64-bit view
// ----------------------------------------------------------------------

/// Whether the key exists. Windows: RegOpenKeyExW.
Answer<Done> registryKey(const std::wstring& keyPath);

/// Whether the value exists, whatever its type and contents; missing also when the key is not there.
/// Windows: RegOpenKeyExW, RegQueryValueExW.
Answer<Done> registryValueExists(const std::wstring& keyPath, const std::wstring& valueName);

/// The value `valueName` of a key; missing when the key or the value is not there. REG_EXPAND_SZ is expanded.
/// Windows: RegOpenKeyExW, RegQueryValueExW, ExpandEnvironmentStringsW.
Answer<RegistryValue> registryValue(const std::wstring& keyPath, const std::wstring& valueName);

// --- Files
// ----------------------------------------------------------------------------------------------------------

/// What stands under this path, with or without a "\" at its end. Relative paths count from the current
/// directory. Windows: GetFileAttributesW.
Answer<FileKind> fileKind(const std::wstring& path);

/// The full path with "." and ".." resolved; nothing need exist there. Windows: GetFullPathNameW.
Answer<std::wstring> absolutePath(const std::wstring& path);

/// All bytes of a file of at most `maximumBytes`; a larger one is `failed` with text.
/// Windows: CreateFileW, ReadFile.
Answer<std::string> fileContents(const std::wstring& path, std::uint64_t maximumBytes);

/// The file version of an image; missing when the image is not there or has no version resource (`failure`
/// never tells the two apart: ask `fileKind`). Windows: GetFileVersionInfoW, VerQueryValueW.
Answer<FileVersion> fileVersion(const std::wstring& path);

// --- System
// ---------------------------------------------------------------------------------------------------------

/// Windows: RtlGetVersion, registry ProductName, IsWow64Process2, GetActiveProcessorCount,
/// GetPhysicallyInstalledSystemMemory, GetTickCount64.
Answer<SystemFacts> system();

/// Adapters that are up, in the system's order. Windows: GetAdaptersAddresses.
Answer<std::vector<AdapterFacts>> adapters();

/// The system's default ANSI code page. Windows: GetACP, GetCPInfoExW.
Answer<CodePageFacts> ansiCodePage();

// --- Accounts
// -------------------------------------------------------------------------------------------------------
// Lists come page by page: pass cursor 0 first, then each page's `next`. `paging.h` has the loop.

/// Whether this computer is joined to a domain; a local question. Windows: DsRoleGetPrimaryDomainInformation.
Answer<Membership> membership();

/// The domain of this computer's own accounts; a local question. Windows: LsaQueryInformationPolicy.
Answer<AccountDomain> accountDomain();

/// The name of a controller of the domain that `membership` told, without leading "\\"; the primary one's
/// computer name with `primary`. `rediscover` when the last answer proved useless. Missing without a domain:
/// nothing is searched for then. Windows: DsGetDcNameW.
Answer<std::wstring> domainController(const Membership& membership, bool primary, bool rediscover);

/// The user accounts there; machine and trust accounts are left out. Windows: NetQueryDisplayInformation,
/// LsaQueryInformationPolicy, NetUserModalsGet.
Answer<AccountPage> users(const AccountSource& source, std::uint64_t cursor);

/// The local groups of this computer, or the built-in and domain-local groups of a controller's domain.
/// Windows: NetLocalGroupEnum, LsaLookupNames2.
Answer<AccountPage> localGroups(const AccountSource& source, std::uint64_t cursor);

/// The groups of `localGroups` to which the account belongs, directly or through other groups. Missing when
/// no such account is known there. Windows: NetUserGetLocalGroups with LG_INCLUDE_INDIRECT.
Answer<std::vector<Account>> localGroupsOf(const AccountSource& source, const Account& user);

/// The global groups to which the account belongs directly, its primary group included. Missing as above.
/// Windows: NetUserGetGroups.
Answer<std::vector<Account>> globalGroupsOf(const AccountSource& source, const Account& user);

/// The global and universal groups there. Windows: NetQueryDisplayInformation.
Answer<AccountPage> globalGroups(const AccountSource& source, std::uint64_t cursor);

/// The direct members of a group of `localGroups`: users and groups, known by SID, or by name where they have
/// none. Missing when there is no such group (any more). Windows: NetLocalGroupGetMembers.
Answer<AccountPage> localGroupMembers(const AccountSource& source, const Account& group,
                                      std::uint64_t cursor);

/// The same of a group of `globalGroups`, known by domain and name. Who has it for his primary group is a
/// member. Windows: NetGroupGetUsers.
Answer<AccountPage> globalGroupMembers(const AccountSource& source, const Account& group,
                                       std::uint64_t cursor);

/// Which groups `localGroupsOf` reaches through others.
enum class Nesting {
    throughGlobalGroups,  ///< those of which a global group of the user is a direct member
    throughAllGroups,     ///< those that any chain of groups leads to
};
Nesting nesting();

/// The account of a SID. Windows: LookupAccountSidW.
Answer<Account> accountOfSid(const Sid& sid);

/// The account "DOMAIN\name". Windows: LookupAccountNameW.
Answer<Account> accountOfName(const std::wstring& fullName);

// --- Volumes, cluster, services
// -------------------------------------------------------------------------------------

/// Every volume: lettered ones by letter, then those mounted in folders only, then the rest.
/// Windows: FindFirstVolumeW, GetVolumePathNamesForVolumeNameW, GetVolumeInformationW, GetDiskFreeSpaceExW,
/// GetDriveTypeW.
Answer<std::vector<VolumeFacts>> volumes();

/// Whether this computer is a node of a cluster whose service runs; missing when it is no node. Asks no other
/// node. Windows: GetNodeClusterState.
Answer<Done> clusterNode();

/// The cluster of which this computer is a node; missing when it is none. Windows: GetNodeClusterState,
/// ClusterEnum.
Answer<ClusterFacts> cluster();

/// A service or driver. Windows: OpenServiceW, QueryServiceStatus, QueryServiceConfigW.
Answer<ServiceFacts> service(const std::wstring& name);

}  // namespace host
