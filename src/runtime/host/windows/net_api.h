#pragma once

/// The account functions of the network library, loaded when the first of them is needed.

#include "runtime/host/os.h"

// For a type that the next one names.
#include <winsock2.h>

#include <dsgetdc.h>
#include <dsrole.h>
#include <lm.h>

#include <algorithm>
#include <span>
#include <string>

#include "runtime/host/windows/library.h"

namespace host::windows {

struct NetApi {
    Library library{L"netapi32.dll"};
    Function<NET_API_STATUS(LPVOID)> bufferFree{library, "NetApiBufferFree"};
    Function<NET_API_STATUS(LPVOID, LPDWORD)> bufferSize{library, "NetApiBufferSize"};

    /// As declared by the system, but for the type of the last pointer.
    Function<NET_API_STATUS(LPCWSTR, DWORD, DWORD, DWORD, DWORD, LPDWORD, BYTE**)> queryDisplayInformation{
        library, "NetQueryDisplayInformation"};
    Function<decltype(::NetUserModalsGet)> userModalsGet{library, "NetUserModalsGet"};
    Function<decltype(::NetLocalGroupEnum)> localGroupEnum{library, "NetLocalGroupEnum"};
    Function<decltype(::NetUserGetLocalGroups)> userGetLocalGroups{library, "NetUserGetLocalGroups"};
    Function<decltype(::NetUserGetGroups)> userGetGroups{library, "NetUserGetGroups"};
    Function<decltype(::NetLocalGroupGetMembers)> localGroupGetMembers{library, "NetLocalGroupGetMembers"};
    Function<decltype(::NetGroupGetUsers)> groupGetUsers{library, "NetGroupGetUsers"};
    Function<decltype(::NetGetJoinInformation)> getJoinInformation{library, "NetGetJoinInformation"};
    Function<decltype(::DsGetDcNameW)> getDcName{library, "DsGetDcNameW"};
    Function<decltype(::DsRoleGetPrimaryDomainInformation)> roleInformation{
        library, "DsRoleGetPrimaryDomainInformation"};
    Function<decltype(::DsRoleFreeMemory)> roleFree{library, "DsRoleFreeMemory"};
};

const NetApi& netApi();

/// Memory that the network library handed out.
template <class Pointer>
struct NetBufferTraits {
    using Handle = Pointer;
    static Handle none() noexcept { return nullptr; }
    static void close(Handle handle) noexcept {
        if (netApi().bufferFree) netApi().bufferFree(handle);
    }
};

/// An array of `Item` in such memory, as a server filled it: nothing in it is to be relied on.
template <class Item>
class NetItems {
public:
    BYTE** receive() noexcept { return m_memory.receive(); }
    /// Null where nothing was left.
    const Item* first() const noexcept { return reinterpret_cast<const Item*>(m_memory.get()); }
    /// The `told` items, but no more than there is memory for.
    std::span<const Item> items(DWORD told) const noexcept {
        if (first() == nullptr) return {};
        DWORD bytes = 0;
        const bool known = netApi().bufferSize.code(m_memory.get(), &bytes) == ERROR_SUCCESS;
        const std::size_t room = known ? bytes / sizeof(Item) : told;
        return {first(), std::min<std::size_t>(told, room)};
    }
    /// Whether all `told` items are there, each with what `member` refers to. A part of them is not to be
    /// taken for the whole.
    template <class Pointer>
    bool areWhole(DWORD told, Pointer Item::*member) const noexcept {
        const std::span<const Item> found = items(told);
        return found.size() == told && std::all_of(found.begin(), found.end(),
                                                   [&](const Item& item) { return item.*member != nullptr; });
    }

private:
    Owner<NetBufferTraits<BYTE*>> m_memory;
};

/// A server's name as these functions take it: with "\\" in front; null for this computer.
class ServerName {
public:
    explicit ServerName(const std::wstring& server) : m_name(server.empty() ? server : L"\\\\" + server) {}
    const wchar_t* get() const noexcept { return m_name.empty() ? nullptr : m_name.c_str(); }

private:
    std::wstring m_name;
};

}  // namespace host::windows
