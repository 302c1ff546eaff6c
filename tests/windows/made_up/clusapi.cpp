/// A made-up cluster library: KVX_CLUSTER tells what it answers ("none", "stopped", "running", "refused"). A
/// running cluster has the nodes NODE1 (up), NODE2 (down) and NODE3 (refused), and two groups.
/// KvxOpenHandles() tells how many handles were not given back.

#include "runtime/host/os.h"

#include <cwchar>
#include <string>

namespace {

long handles = 0;
int object = 0;

bool is(const wchar_t* state) {
    wchar_t text[32] = L"";
    GetEnvironmentVariableW(L"KVX_CLUSTER", text, 32);
    return std::wcscmp(text, state) == 0;
}

void* opened(std::size_t value) {
    ++handles;
    return reinterpret_cast<char*>(&object) + value;
}

BOOL closed() {
    --handles;
    return TRUE;
}

std::size_t valueOf(void* handle) {
    return static_cast<std::size_t>(static_cast<char*>(handle) - reinterpret_cast<char*>(&object));
}

DWORD give(const std::wstring& text, wchar_t* room, DWORD* size) {
    const DWORD given = *size;
    *size = static_cast<DWORD>(text.size());
    if (given <= text.size()) return ERROR_MORE_DATA;
    std::wcscpy(room, text.c_str());
    return ERROR_SUCCESS;
}

std::wstring longGroup() {
    return std::wstring(400, L'g');
}

}  // namespace

extern "C" {

__declspec(dllexport) long KvxOpenHandles() {
    return handles;
}
__declspec(dllexport) DWORD WINAPI GetNodeClusterState(LPCWSTR, DWORD* state) {
    *state = is(L"none") ? 1 : is(L"stopped") ? 3 : 19;
    return ERROR_SUCCESS;
}
__declspec(dllexport) void* WINAPI OpenClusterEx(LPCWSTR, DWORD access, DWORD*) {
    if (!is(L"refused") && access == GENERIC_READ) return opened(0);
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}
__declspec(dllexport) BOOL WINAPI CloseCluster(void*) {
    return closed();
}
__declspec(dllexport) DWORD WINAPI GetClusterInformation(void*, LPWSTR name, DWORD* size, void*) {
    return give(L"CLU1", name, size);
}
__declspec(dllexport) void* WINAPI ClusterOpenEnum(void*, DWORD kind) {
    return opened(kind);
}
__declspec(dllexport) DWORD WINAPI ClusterCloseEnum(void*) {
    closed();
    return ERROR_SUCCESS;
}
__declspec(dllexport) DWORD WINAPI
    ClusterEnum(void* list, DWORD index, DWORD* kind, LPWSTR name, DWORD* size) {
    *kind = static_cast<DWORD>(valueOf(list));
    if (*kind == 1 && index < 3) return give(L"NODE" + std::to_wstring(index + 1), name, size);
    if (*kind == 8 && index < 2) return give(index == 0 ? L"Cluster Group" : longGroup(), name, size);
    return ERROR_NO_MORE_ITEMS;
}
__declspec(dllexport) void* WINAPI OpenClusterNodeEx(void*, LPCWSTR name, DWORD, DWORD*) {
    if (std::wcscmp(name, L"NODE3") != 0) return opened(std::wcscmp(name, L"NODE1") == 0 ? 0 : 1);
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}
__declspec(dllexport) int WINAPI GetClusterNodeState(void* node) {
    return static_cast<int>(valueOf(node));
}
__declspec(dllexport) BOOL WINAPI CloseClusterNode(void*) {
    return closed();
}
__declspec(dllexport) void* WINAPI OpenClusterGroupEx(void*, LPCWSTR name, DWORD, DWORD*) {
    return opened(name == longGroup() ? 3 : 0);
}
__declspec(dllexport) int WINAPI GetClusterGroupState(void* group, LPWSTR owner, DWORD* size) {
    const DWORD code = give(L"NODE1", owner, size);
    SetLastError(code);
    return code == ERROR_SUCCESS ? static_cast<int>(valueOf(group)) : -1;
}
__declspec(dllexport) BOOL WINAPI CloseClusterGroup(void*) {
    return closed();
}

}  // extern "C"
