#pragma once

/// The functions that the network library stands in for, under names of their own: netapi32.def gives them
/// those of the system.

#include "runtime/host/os.h"

#include <dsgetdc.h>
#include <dsrole.h>
#include <lm.h>

#include <string>

namespace made_up {

/// The one global group of a computer that keeps its own accounts; its users belong to it.
inline const std::wstring noGroup = L"None";

}  // namespace made_up

extern "C" {

/// How many pieces of memory the caller has not given back.
long KvxOutstanding();
/// How often a function was called, or "remote": how many calls would have gone to another computer.
long KvxCalls(const char* name);

NET_API_STATUS WINAPI KvxBufferFree(LPVOID buffer);
NET_API_STATUS WINAPI KvxBufferSize(LPVOID buffer, LPDWORD bytes);
void WINAPI KvxRoleFree(PVOID buffer);

NET_API_STATUS WINAPI KvxDisplay(LPCWSTR server, DWORD level, DWORD index, DWORD wanted, DWORD preferred,
                                 LPDWORD count, BYTE** buffer);
NET_API_STATUS WINAPI KvxModals(LPCWSTR server, DWORD level, LPBYTE* buffer);
NET_API_STATUS WINAPI KvxLocalGroups(LPCWSTR server, DWORD level, LPBYTE* buffer, DWORD preferred,
                                     LPDWORD count, LPDWORD total, PDWORD_PTR resume);
NET_API_STATUS WINAPI KvxLocalGroupsOf(LPCWSTR server, LPCWSTR user, DWORD level, DWORD flags, LPBYTE* buffer,
                                       DWORD preferred, LPDWORD count, LPDWORD total);
NET_API_STATUS WINAPI KvxGroupsOf(LPCWSTR server, LPCWSTR user, DWORD level, LPBYTE* buffer, DWORD preferred,
                                  LPDWORD count, LPDWORD total);
NET_API_STATUS WINAPI KvxLocalMembers(LPCWSTR server, LPCWSTR group, DWORD level, LPBYTE* buffer,
                                      DWORD preferred, LPDWORD count, LPDWORD total, PDWORD_PTR resume);
NET_API_STATUS WINAPI KvxGlobalMembers(LPCWSTR server, LPCWSTR group, DWORD level, LPBYTE* buffer,
                                       DWORD preferred, LPDWORD count, LPDWORD total, PDWORD_PTR resume);
NET_API_STATUS WINAPI KvxJoin(LPCWSTR server, LPWSTR* name, PNETSETUP_JOIN_STATUS status);
DWORD WINAPI KvxRole(LPCWSTR server, DSROLE_PRIMARY_DOMAIN_INFO_LEVEL level, PBYTE* buffer);
DWORD WINAPI KvxDcName(LPCWSTR computer, LPCWSTR domain, GUID* id, LPCWSTR site, ULONG flags,
                       PDOMAIN_CONTROLLER_INFOW* info);

}  // extern "C"
