#pragma once

/// The account functions of the network library, loaded when the first of them is needed.

#include "runtime/host/os.h"

// For a type that the next one names.
#include <winsock2.h>

#include <dsgetdc.h>
#include <dsrole.h>
#include <lm.h>

#include <algorithm>
#include <optional>
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
    /// The `told` items; nothing where they are not all there, each with what `member` refers to: a part of
    /// them is not to be taken for the whole.
    template <class Pointer>
    std::optional<std::span<const Item>> whole(DWORD told, Pointer Item::*member) const {
        if (told == 0) return std::span<const Item>();
        DWORD bytes = 0;
        const bool known = netApi().bufferSize.code(m_memory.get(), &bytes) == ERROR_SUCCESS && bytes != 0;
        if (first() == nullptr || (known && bytes / sizeof(Item) < told)) return std::nullopt;
        const std::span<const Item> items(first(), told);
        const bool areWhole = std::all_of(items.begin(), items.end(),
                                          [&](const Item& item) { return item.*member != nullptr; });
        return areWhole ? std::optional(items) : std::nullopt;
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
