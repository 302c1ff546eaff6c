/// A made-up cluster library: it answers from the section [cluster] of the description of which netapi32.cpp
/// tells, with quirks and counts like its. Without that section the computer is not a node of a cluster.
///
/// The program loads it at its start, before it asks for anything else: so it is also what replaces imports
/// of system libraries that nothing can stand in for (volumes.h, services.h).

#include <algorithm>
#include <cwchar>
#include <string>

#include "runtime/host/letter_case.h"
#include "runtime/host/os.h"
#include "tests/windows/made_up/clusapi/services.h"
#include "tests/windows/made_up/clusapi/volumes.h"
#include "tests/windows/made_up/shared/imports.h"
#include "tests/windows/made_up/shared/machine.h"
#include "tests/windows/made_up/shared/quirks.h"

namespace {

using made_up::oddityOf;

constexpr DWORD notConfigured = 1, running = 19;
constexpr DWORD nodes = 1, groups = 8;

long handles = 0;

/// What a handle stands for: the cluster, the list of a kind, or the object at a place of such a list.
struct Object {
    DWORD kind = 0;
    std::size_t place = 0;
};

const description::ClusterDescription* section() {
    const auto& cluster = made_up::machine().cluster;
    return cluster ? &*cluster : nullptr;
}

const host::ClusterFacts& facts() {
    return section()->facts;
}

Object* opened(const Object& object) {
    ++handles;
    return new Object(object);
}

DWORD closed(const char* function, Object* object) {
    oddityOf(function, false);
    --handles;
    delete object;
    return ERROR_SUCCESS;
}

/// Why a call fails.
DWORD codeOf(const char* function) {
    return oddityOf(function, false).error;
}

/// Whether a call opens nothing; the thread's last error is set then, which may be none.
bool opensNothing(const char* function) {
    const made_up::Oddity oddity = oddityOf(function, false);
    SetLastError(oddity.error);
    return oddity.error != ERROR_SUCCESS || oddity.nullBuffer;
}

DWORD give(const std::wstring& text, wchar_t* room, DWORD* size) {
    const DWORD given = *size;
    *size = static_cast<DWORD>(text.size());
    if (given <= text.size()) return ERROR_MORE_DATA;
    std::wcscpy(room, text.c_str());
    return ERROR_SUCCESS;
}

template <class Part>
Object* openPart(const char* function, DWORD kind, const std::vector<Part>& parts, const wchar_t* name) {
    if (opensNothing(function)) return nullptr;
    const auto found = std::find_if(parts.begin(), parts.end(), [&](const Part& part) {
        return host::equalIgnoringCase(part.name, name);
    });
    if (found != parts.end()) return opened({kind, static_cast<std::size_t>(found - parts.begin())});
    SetLastError(ERROR_NOT_FOUND);
    return nullptr;
}

/// The number by which the library tells a state; -1 for one that it does not know.
template <std::size_t count>
int numberOf(const std::wstring& state, const wchar_t* const (&names)[count]) {
    const auto* found = std::find(std::begin(names), std::end(names), state);
    return found == std::end(names) ? -1 : static_cast<int>(found - std::begin(names));
}

}  // namespace

extern "C" {

__declspec(dllexport) long KvxOpenHandles() {
    return handles;
}

__declspec(dllexport) DWORD WINAPI GetNodeClusterState(LPCWSTR, DWORD* state) {
    // It is the first that the program calls. What the network library makes of the names and SIDs of the
    // computer must hold from here on.
    LoadLibraryExW(L"netapi32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto* cluster = section();
    const made_up::Oddity oddity = oddityOf("GetNodeClusterState", false);
    if (oddity.error != ERROR_SUCCESS) return oddity.error;
    *state = cluster != nullptr ? running : notConfigured;
    if (oddity.state >= 0) *state = static_cast<DWORD>(oddity.state);
    return cluster != nullptr && cluster->cause.any ? cluster->cause.code : ERROR_SUCCESS;
}

__declspec(dllexport) Object* WINAPI OpenClusterEx(LPCWSTR, DWORD access, DWORD*) {
    if (opensNothing("OpenClusterEx")) return nullptr;
    if (access == GENERIC_READ) return opened({});
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}

__declspec(dllexport) BOOL WINAPI CloseCluster(Object* cluster) {
    return closed("CloseCluster", cluster) == ERROR_SUCCESS;
}

__declspec(dllexport) DWORD WINAPI GetClusterInformation(Object*, LPWSTR name, DWORD* size, void*) {
    const DWORD code = codeOf("GetClusterInformation");
    return code != ERROR_SUCCESS ? code : give(facts().name, name, size);
}

__declspec(dllexport) Object* WINAPI ClusterOpenEnum(Object*, DWORD kind) {
    return opensNothing("ClusterOpenEnum") ? nullptr : opened({kind, 0});
}

__declspec(dllexport) DWORD WINAPI ClusterCloseEnum(Object* list) {
    return closed("ClusterCloseEnum", list);
}

__declspec(dllexport) DWORD WINAPI
    ClusterEnum(Object* list, DWORD index, DWORD* kind, LPWSTR name, DWORD* size) {
    const made_up::Oddity oddity = oddityOf("ClusterEnum", false);
    if (oddity.error != ERROR_SUCCESS) return oddity.error;
    *kind = list->kind;
    const bool isNode = list->kind == nodes;
    const std::size_t all = isNode ? facts().nodes.size() : facts().groups.size();
    const std::size_t place = oddity.goesRound ? index % all : index;
    if (place < all) return give(isNode ? facts().nodes[place].name : facts().groups[place].name, name, size);
    return ERROR_NO_MORE_ITEMS;
}

__declspec(dllexport) Object* WINAPI OpenClusterNodeEx(Object*, LPCWSTR name, DWORD, DWORD*) {
    return openPart("OpenClusterNodeEx", nodes, facts().nodes, name);
}

__declspec(dllexport) int WINAPI GetClusterNodeState(Object* node) {
    static constexpr const wchar_t* names[] = {L"up", L"down", L"paused", L"joining"};
    const int state = oddityOf("GetClusterNodeState", false).state;
    return state >= 0 ? state : numberOf(facts().nodes[node->place].state, names);
}

__declspec(dllexport) BOOL WINAPI CloseClusterNode(Object* node) {
    return closed("CloseClusterNode", node) == ERROR_SUCCESS;
}

__declspec(dllexport) Object* WINAPI OpenClusterGroupEx(Object*, LPCWSTR name, DWORD, DWORD*) {
    return openPart("OpenClusterGroupEx", groups, facts().groups, name);
}

__declspec(dllexport) int WINAPI GetClusterGroupState(Object* group, LPWSTR owner, DWORD* size) {
    static constexpr const wchar_t* names[] = {L"online", L"offline", L"failed", L"partly online",
                                               L"pending"};
    const made_up::Oddity oddity = oddityOf("GetClusterGroupState", false);
    const host::ClusterGroup& known = facts().groups[group->place];
    const DWORD code = oddity.error != ERROR_SUCCESS ? oddity.error : give(known.owner, owner, size);
    SetLastError(code);
    if (code != ERROR_SUCCESS) return -1;
    return oddity.state >= 0 ? oddity.state : numberOf(known.state, names);
}

__declspec(dllexport) BOOL WINAPI CloseClusterGroup(Object* group) {
    return closed("CloseClusterGroup", group) == ERROR_SUCCESS;
}

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH && !made_up::variable(L"KVX_MADE_UP_MACHINE").empty()) {
        made_up::stayLoaded(library);
        made_up::replaceVolumes();
        made_up::replaceServices();
    }
    if (reason == DLL_PROCESS_DETACH) {
        for (long left = handles; left > 0; --left)
            made_up::count("not closed");
        made_up::writeCalls();
    }
    return TRUE;
}

}  // extern "C"
