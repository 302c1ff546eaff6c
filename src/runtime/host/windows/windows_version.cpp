#include "runtime/host/windows/windows_version.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "runtime/host/windows/library.h"

namespace host::windows {

Answer<KernelVersion> kernelVersion() {
    const Function<LONG(OSVERSIONINFOEXW*)> rtlGetVersion{L"ntdll.dll", "RtlGetVersion"};
    if (!rtlGetVersion) return Answer<KernelVersion>::failed(rtlGetVersion.error());
    OSVERSIONINFOEXW info{};
    info.dwOSVersionInfoSize = sizeof info;
    rtlGetVersion(&info);

    KernelVersion version{info.dwMajorVersion, info.dwMinorVersion, info.dwBuildNumber};
    if (info.wProductType == VER_NT_DOMAIN_CONTROLLER) version.role = KernelVersion::Role::domainController;
    if (info.wProductType == VER_NT_SERVER) version.role = KernelVersion::Role::server;
    return version;
}

namespace {

/// What people call the builds of servers.
struct ServerProduct {
    std::uint32_t build;
    std::wstring_view name;
};
constexpr ServerProduct serverProducts[] = {
    {9600, L"Windows Server 2012 R2"}, {14393, L"Windows Server 2016"}, {17763, L"Windows Server 2019"},
    {20348, L"Windows Server 2022"},   {25398, L"Windows Server 23H2"}, {26100, L"Windows Server 2025"},
};

std::wstring serverName(const std::wstring& product, std::uint32_t build) {
    constexpr std::wstring_view family = L"Windows Server ";
    const auto known = std::find_if(std::begin(serverProducts), std::end(serverProducts),
                                    [build](const ServerProduct& server) { return server.build == build; });
    if (product.empty())
        return std::wstring(known != std::end(serverProducts) ? known->name : L"Windows Server");
    const bool isRight = known == std::end(serverProducts) || product.starts_with(known->name);
    const bool hasYear = product.starts_with(family) && product.substr(family.size()).starts_with(L'2');
    if (isRight || !hasYear) return product;
    // Behind the family stand year and edition: "2022 Datacenter".
    const std::size_t edition = product.find(L' ', family.size());
    return std::wstring(known->name) + (edition < product.size() ? product.substr(edition) : L"");
}

}  // namespace

std::wstring productName(const std::wstring& inRegistry, const KernelVersion& version) {
    constexpr std::uint32_t firstBuildOfWindows10 = 10240, firstBuildOfWindows11 = 22000;
    // One edition of it is a server to the kernel: multi-session.
    if (version.build >= firstBuildOfWindows11 && inRegistry.starts_with(L"Windows 10"))
        return L"Windows 11" + inRegistry.substr(std::wstring_view(L"Windows 10").size());
    if (version.role != KernelVersion::Role::workstation) return serverName(inRegistry, version.build);
    if (!inRegistry.empty()) return inRegistry;
    if (version.build >= firstBuildOfWindows11) return L"Windows 11";
    return version.build >= firstBuildOfWindows10 ? L"Windows 10" : L"Windows";
}

}  // namespace host::windows
