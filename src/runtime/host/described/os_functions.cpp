#include "runtime/host/described/os_functions.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <string>

#include "runtime/host/described/native_errors.h"
#include "runtime/host/described/native_files.h"
#include "runtime/host/description/file_lookup.h"
#include "runtime/host/description/state.h"
#include "runtime/host/description/windows_path.h"

namespace {

constexpr DWORD fileNotFound = 2;
constexpr DWORD pathNotFound = 3;
constexpr DWORD accessDenied = 5;
constexpr DWORD invalidHandle = 6;
constexpr DWORD notEnoughMemory = 8;
constexpr DWORD invalidParameter = 87;
constexpr DWORD insufficientBuffer = 122;
constexpr DWORD procedureNotFound = 127;
constexpr DWORD invalidSid = 1337;

constexpr unsigned int mostSubAuthorities = 8;
constexpr std::size_t sidHeaderSize = 8;

/// As on Windows, what ran before the program has left a code behind: only who resets it may ask for it.
thread_local DWORD lastError = procedureNotFound;

using Kind = host::Verdict::Kind;

/// What the description has planned for this call: it is carried out as far as it concerns every call alike.
host::Verdict planned(const wchar_t* operation, const wchar_t* subject = L"") {
    host::Verdict verdict = description::failurePlan().next(operation, subject);
    if (verdict.kind == Kind::throwForeign) throw host::ForeignException();
    if (verdict.kind == Kind::fail) lastError = verdict.code;
    return verdict;
}

/// Whether the description has planned that this call fails; the last error is then set.
bool isPlannedToFail(const wchar_t* operation, const wchar_t* subject = L"") {
    return planned(operation, subject).kind != Kind::proceed;
}

BOOL fail(DWORD code) {
    lastError = code;
    return 0;
}

/// The characters of `text` and a terminator.
void copyOut(const std::wstring& text, wchar_t* buffer) {
    std::copy_n(text.c_str(), text.size() + 1, buffer);
}

/// The text, lengthened to `length` characters.
std::wstring grown(std::wstring text, std::size_t length) {
    if (text.size() < length) text.append(length - text.size(), L'x');
    return text;
}

host::Sid sidAt(const void* memory) {
    host::Sid sid;
    std::uint8_t header[sidHeaderSize];
    std::memcpy(header, memory, sidHeaderSize);
    sid.revision = header[0];
    sid.subAuthorityCount = std::min<std::uint8_t>(header[1], host::Sid::maximumSubAuthorities);
    std::copy_n(header + 2, sid.authority.size(), sid.authority.begin());
    std::memcpy(sid.subAuthorities.data(), static_cast<const std::uint8_t*>(memory) + sidHeaderSize,
                sid.subAuthorityCount * sizeof(std::uint32_t));
    return sid;
}

/// The account of the current user, as the machine's groups know it.
host::Account currentAccount() {
    const description::Machine& machine = description::machine();
    const std::wstring& domain = machine.user.domain;
    return {domain.empty() ? machine.system.facts.computerName : domain, machine.user.name, {}};
}

bool currentUserHas(const host::Sid& sid) {
    const description::Directory& directory = description::directory();
    for (const auto kind : {description::GroupKind::local, description::GroupKind::domainLocal,
                            description::GroupKind::global}) {
        const auto groups = directory.groupsOf(currentAccount(), kind, description::Reach::throughAllGroups);
        if (!groups) continue;
        for (const host::Account& group : *groups) {
            if (group.sid == sid) return true;
        }
    }
    return false;
}

/// The mode of a stream for this computer; empty when it is none.
std::string nativeMode(const wchar_t* mode) {
    std::string result;
    for (; *mode != L'\0'; ++mode) {
        const bool opens = *mode == L'r' || *mode == L'w' || *mode == L'a';
        const bool changes = *mode == L'b' || *mode == L't' || *mode == L'+';
        if (result.empty() ? !opens : !changes) return {};
        if (*mode != L't') result += static_cast<char>(*mode);
    }
    return result.empty() ? result : result + "e";
}

/// Whether there is a directory in which the file could stand.
bool isBelowDirectory(const std::string& name) {
    const std::size_t end = name.rfind('/');
    if (end == std::string::npos) return !name.empty();
    return access(name.substr(0, end + 1).c_str(), F_OK) == 0;
}

}  // namespace

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD code) {
    lastError = code;
}

UINT GetWindowsDirectoryW(wchar_t* buffer, UINT size) {
    const std::wstring& directory = description::machine().system.windowsDirectory;
    auto length = static_cast<UINT>(directory.size());
    const host::Verdict verdict = planned(L"GetWindowsDirectoryW");
    if (verdict.kind == Kind::grow) {
        length = std::max(length, verdict.characters - 1);
    } else if (verdict.kind != Kind::proceed) {
        return 0;
    }
    if (buffer == nullptr || size <= length) {
        lastError = insufficientBuffer;
        return length + 1;
    }
    copyOut(grown(directory, length), buffer);
    return length;
}

BOOL DeleteFileW(const wchar_t* path) {
    if (path == nullptr) return fail(invalidParameter);
    if (isPlannedToFail(L"DeleteFileW", path)) return 0;
    if (description::isDescribedPath(path)) {
        const description::LookedUp found = description::lookUp(description::machine(), path);
        return fail(found.cause.any          ? found.cause.code
                    : found.entry != nullptr ? accessDenied
                                             : fileNotFound);
    }
    const std::string name = described::nativeName(path);
    if (unlink(name.c_str()) == 0) return 1;
    const int error = errno;
    return fail(error == ENOENT && !isBelowDirectory(name) ? pathNotFound : described::windowsCodeOf(error));
}

BOOL GetUserNameW(wchar_t* buffer, DWORD* size) {
    if (isPlannedToFail(L"GetUserNameW")) return 0;
    if (size == nullptr) return fail(invalidParameter);
    const std::wstring& name = description::machine().user.name;
    const DWORD needed = static_cast<DWORD>(name.size()) + 1;
    const bool fits = buffer != nullptr && *size >= needed;
    *size = needed;
    if (!fits) return fail(insufficientBuffer);
    copyOut(name, buffer);
    return 1;
}

BOOL AllocateAndInitializeSid(SID_IDENTIFIER_AUTHORITY* authority, BYTE count, DWORD sub0, DWORD sub1,
                              DWORD sub2, DWORD sub3, DWORD sub4, DWORD sub5, DWORD sub6, DWORD sub7,
                              PSID* sid) {
    if (isPlannedToFail(L"AllocateAndInitializeSid")) return 0;
    if (authority == nullptr || sid == nullptr) return fail(invalidParameter);
    if (count > mostSubAuthorities) return fail(invalidSid);
    const DWORD parts[mostSubAuthorities] = {sub0, sub1, sub2, sub3, sub4, sub5, sub6, sub7};
    auto* memory = static_cast<BYTE*>(::operator new(sidHeaderSize + sizeof parts, std::nothrow));
    if (memory == nullptr) return fail(notEnoughMemory);
    memory[0] = 1;
    memory[1] = count;
    std::memcpy(memory + 2, authority->Value, sizeof authority->Value);
    std::memcpy(memory + sidHeaderSize, parts, sizeof parts);
    *sid = memory;
    return 1;
}

BOOL CheckTokenMembership(void* token, PSID sid, BOOL* isMember) {
    if (isPlannedToFail(L"CheckTokenMembership")) return 0;
    if (token != nullptr) return fail(invalidHandle);
    if (sid == nullptr || isMember == nullptr) return fail(sid == nullptr ? invalidSid : invalidParameter);
    host::Sid administrators;
    administrators.authority[5] = 5;
    administrators.subAuthorityCount = 2;
    administrators.subAuthorities[0] = SECURITY_BUILTIN_DOMAIN_RID;
    administrators.subAuthorities[1] = DOMAIN_ALIAS_RID_ADMINS;
    const host::Sid asked = sidAt(sid);
    const bool isOne =
        asked == administrators ? description::machine().user.administrator : currentUserHas(asked);
    *isMember = isOne ? 1 : 0;
    return 1;
}

PVOID FreeSid(PSID sid) {
    ::operator delete(sid);
    return nullptr;
}

int _wfopen_s(std::FILE** stream, const wchar_t* path, const wchar_t* mode) {
    if (stream == nullptr) return EINVAL;
    *stream = nullptr;
    if (path == nullptr || mode == nullptr) return EINVAL;
    const host::Verdict verdict = planned(L"_wfopen_s", path);
    if (verdict.kind != Kind::proceed) return verdict.code != 0 ? static_cast<int>(verdict.code) : EACCES;
    const std::string native = nativeMode(mode);
    if (native.empty()) return EINVAL;
    if (description::isDescribedPath(path)) {
        const description::LookedUp found = description::lookUp(description::machine(), path);
        return found.entry != nullptr || found.cause.any ? EACCES : ENOENT;
    }
    *stream = std::fopen(described::nativeName(path).c_str(), native.c_str());
    if (*stream != nullptr) return 0;
    return errno == EISDIR ? EACCES : errno;
}
