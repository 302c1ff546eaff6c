#pragma once

/// The operating-system calls of the checker where there is no Windows, with the contract of the originals. A
/// described machine can make each of them fail (by its name, as an operation); otherwise they answer from
/// the description, and relative file names are real files in the current directory.

#include <cstdint>
#include <cstdio>

using BOOL = int;
using BYTE = std::uint8_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using PVOID = void*;

struct HKEY__;
using HKEY = HKEY__*;
/// A value that stands for the hive; it is never followed.
// NOLINTNEXTLINE(misc-misplaced-const,performance-no-int-to-ptr)
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000002U));

struct SID_IDENTIFIER_AUTHORITY {
    BYTE Value[6];
};
struct _SID {
    BYTE Revision;
    BYTE SubAuthorityCount;
    SID_IDENTIFIER_AUTHORITY IdentifierAuthority;
    DWORD SubAuthority[1];
};
using SID = _SID;
using PSID = PVOID;

#define SECURITY_NT_AUTHORITY \
    { 0, 0, 0, 0, 0, 5 }
inline constexpr DWORD SECURITY_BUILTIN_DOMAIN_RID = 32;
inline constexpr DWORD DOMAIN_ALIAS_RID_ADMINS = 544;

DWORD GetLastError();
void SetLastError(DWORD code);

/// Size 0 or too small: the size needed, terminator included. Else the length without terminator. 0: failed.
UINT GetWindowsDirectoryW(wchar_t* buffer, UINT size);

/// Non-zero when the file is gone afterwards; it is a real file in the current directory.
BOOL DeleteFileW(const wchar_t* path);

/// `*size`: in, room of `buffer` in characters; out, characters used with the terminator, or needed.
BOOL GetUserNameW(wchar_t* buffer, DWORD* size);

BOOL AllocateAndInitializeSid(SID_IDENTIFIER_AUTHORITY* authority, BYTE count, DWORD sub0, DWORD sub1,
                              DWORD sub2, DWORD sub3, DWORD sub4, DWORD sub5, DWORD sub6, DWORD sub7,
                              PSID* sid);
BOOL CheckTokenMembership(void* token, PSID sid, BOOL* isMember);
PVOID FreeSid(PSID sid);

/// 0 and an open stream, or an errno value and a null stream.
int _wfopen_s(std::FILE** stream, const wchar_t* path, const wchar_t* mode);

/// As the C run time of Windows does it in text mode and the C locale: "%s" takes wide text, LF becomes CR
/// LF, a character up to U+00FF one byte; at one above, the text ends and the result is negative. No other
/// conversions than "%s" and "%%" are known.
int fwprintf_s(std::FILE* stream, const wchar_t* format, ...);
