#include "runtime/host/host.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/cluster_library.h"
#include "runtime/host/windows/errors.h"

namespace host {

namespace {

using windows::clusterLibrary;

constexpr DWORD stateNotInstalled = 0, stateNotConfigured = 1, stateNotRunning = 3, stateRunning = 19;
constexpr DWORD nodes = 1, groups = 8;

std::wstring nameOfNodeState(int state) {
    constexpr const wchar_t* names[] = {L"up", L"down", L"paused", L"joining"};
    return state >= 0 && static_cast<std::size_t>(state) < std::size(names) ? names[state] : L"unknown";
}

std::wstring nameOfGroupState(int state) {
    constexpr const wchar_t* names[] = {L"online", L"offline", L"failed", L"partly online", L"pending"};
    return state >= 0 && static_cast<std::size_t>(state) < std::size(names) ? names[state] : L"unknown";
}

/// Why something could not be opened; never "success".
DWORD lastError() {
    const DWORD code = GetLastError();
    return code != ERROR_SUCCESS ? code : ERROR_INVALID_DATA;
}

/// The state of what did not tell it.
std::wstring unknownState(DWORD code) {
    return L"unknown, system error " + std::to_wstring(code);
}

/// Hands the name of every object of a kind to `take`; returns the code with which the list ended.
template <class Take>
DWORD forEach(const windows::ClusterHandle& cluster, DWORD kind, Take take) {
    const windows::ClusterEnumHandle list(clusterLibrary().openEnum(cluster.get(), kind));
    if (!list) return lastError();
    // No cluster has more; a list that goes on is none.
    constexpr DWORD mostObjects = 65536;
    for (DWORD index = 0; index < mostObjects; ++index) {
        const windows::FilledText name = windows::fillText([&](wchar_t* units, DWORD& size) {
            DWORD found = 0, characters = size;
            const DWORD code = clusterLibrary().next(list.get(), index, &found, units, &characters);
            size = characters + 1;
            return code;
        });
        if (name.code == ERROR_NO_MORE_ITEMS) return ERROR_SUCCESS;
        if (name.code != ERROR_SUCCESS) return name.code;
        take(name.text);
    }
    return ERROR_INVALID_DATA;
}

ClusterNode nodeOf(const windows::ClusterHandle& cluster, const std::wstring& name) {
    const windows::ClusterNodeHandle node(
        clusterLibrary().openNode(cluster.get(), name.c_str(), GENERIC_READ, nullptr));
    const int state = node ? clusterLibrary().nodeState(node.get()) : -1;
    return {name, state < 0 ? unknownState(lastError()) : nameOfNodeState(state)};
}

ClusterGroup groupOf(const windows::ClusterHandle& cluster, const std::wstring& name) {
    const windows::ClusterGroupHandle group(
        clusterLibrary().openGroup(cluster.get(), name.c_str(), GENERIC_READ, nullptr));
    if (!group) return {name, {}, unknownState(lastError())};
    int state = -1;
    const windows::FilledText owner = windows::fillText([&](wchar_t* units, DWORD& size) -> DWORD {
        DWORD characters = size;
        state = clusterLibrary().groupState(group.get(), units, &characters);
        size = characters + 1;
        return state >= 0 ? ERROR_SUCCESS : lastError();
    });
    if (owner.code != ERROR_SUCCESS) return {name, {}, unknownState(owner.code)};
    return {name, owner.text, nameOfGroupState(state)};
}

DWORD readCluster(ClusterFacts& facts) {
    if (const DWORD missing = clusterLibrary().error(); missing != ERROR_SUCCESS) return missing;
    const windows::ClusterHandle cluster(clusterLibrary().openCluster(nullptr, GENERIC_READ, nullptr));
    if (!cluster) return lastError();
    const windows::FilledText name = windows::fillText([&](wchar_t* units, DWORD& size) {
        DWORD characters = size;
        const DWORD code = clusterLibrary().clusterInformation(cluster.get(), units, &characters, nullptr);
        size = characters + 1;
        return code;
    });
    if (name.code != ERROR_SUCCESS) return name.code;
    facts.name = name.text;
    const DWORD nodesRead = forEach(
        cluster, nodes, [&](const std::wstring& node) { facts.nodes.push_back(nodeOf(cluster, node)); });
    if (nodesRead != ERROR_SUCCESS) return nodesRead;
    return forEach(cluster, groups,
                   [&](const std::wstring& group) { facts.groups.push_back(groupOf(cluster, group)); });
}

}  // namespace

Answer<Done> clusterNode() {
    // Without the library there is no such feature, and this computer is no node.
    if (clusterLibrary().library.error() == ERROR_MOD_NOT_FOUND) return {};
    DWORD state = stateNotInstalled;
    const DWORD code = clusterLibrary().getNodeClusterState.code(nullptr, &state);
    if (code != ERROR_SUCCESS) return windows::unanswered<Done>(code);
    if (state == stateNotInstalled || state == stateNotConfigured) return {};
    if (state == stateNotRunning)
        return Answer<Done>::failed(0, L"the cluster service is not running on this node");
    if (state != stateRunning)
        return Answer<Done>::failed(0,
                                    L"the cluster service is in the unknown state " + std::to_wstring(state));
    return Done{};
}

Answer<ClusterFacts> cluster() {
    const Answer<Done> node = clusterNode();
    if (!node.found()) return Answer<ClusterFacts>::without(node);
    ClusterFacts facts;
    const DWORD read = readCluster(facts);
    return read == ERROR_SUCCESS ? facts : windows::unanswered<ClusterFacts>(read);
}

}  // namespace host
