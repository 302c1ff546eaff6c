#pragma once

/// The cluster library, which only servers with the feature have. Its functions and handles are declared
/// here, for the compiler's own header of them is not complete.

#include "runtime/host/windows/library.h"

namespace host::windows {

struct ClusterObject;
struct ClusterNodeObject;
struct ClusterGroupObject;
struct ClusterEnumObject;

struct ClusterLibrary {
    Library library{L"clusapi.dll"};
    Function<DWORD(LPCWSTR, DWORD*)> getNodeClusterState{library, "GetNodeClusterState"};
    Function<ClusterObject*(LPCWSTR, DWORD, DWORD*)> openCluster{library, "OpenClusterEx"};
    Function<BOOL(ClusterObject*)> closeCluster{library, "CloseCluster"};
    Function<DWORD(ClusterObject*, LPWSTR, DWORD*, void*)> clusterInformation{library,
                                                                              "GetClusterInformation"};
    Function<ClusterEnumObject*(ClusterObject*, DWORD)> openEnum{library, "ClusterOpenEnum"};
    Function<DWORD(ClusterEnumObject*, DWORD, DWORD*, LPWSTR, DWORD*)> next{library, "ClusterEnum"};
    Function<DWORD(ClusterEnumObject*)> closeEnum{library, "ClusterCloseEnum"};
    Function<ClusterNodeObject*(ClusterObject*, LPCWSTR, DWORD, DWORD*)> openNode{library,
                                                                                  "OpenClusterNodeEx"};
    Function<int(ClusterNodeObject*)> nodeState{library, "GetClusterNodeState"};
    Function<BOOL(ClusterNodeObject*)> closeNode{library, "CloseClusterNode"};
    Function<ClusterGroupObject*(ClusterObject*, LPCWSTR, DWORD, DWORD*)> openGroup{library,
                                                                                    "OpenClusterGroupEx"};
    Function<int(ClusterGroupObject*, LPWSTR, DWORD*)> groupState{library, "GetClusterGroupState"};
    Function<BOOL(ClusterGroupObject*)> closeGroup{library, "CloseClusterGroup"};

    /// Why one of the functions that every question needs cannot be called; 0 when all can.
    DWORD error() const noexcept;
};

const ClusterLibrary& clusterLibrary();

template <class Object, auto closeFunction>
struct ClusterTraits {
    using Handle = Object*;
    static Handle none() noexcept { return nullptr; }
    static void close(Handle handle) noexcept {
        if (clusterLibrary().*closeFunction) (clusterLibrary().*closeFunction)(handle);
    }
};

using ClusterHandle = Owner<ClusterTraits<ClusterObject, &ClusterLibrary::closeCluster>>;
using ClusterEnumHandle = Owner<ClusterTraits<ClusterEnumObject, &ClusterLibrary::closeEnum>>;
using ClusterNodeHandle = Owner<ClusterTraits<ClusterNodeObject, &ClusterLibrary::closeNode>>;
using ClusterGroupHandle = Owner<ClusterTraits<ClusterGroupObject, &ClusterLibrary::closeGroup>>;

}  // namespace host::windows
