#include "runtime/host/windows/windows_version.h"

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

std::wstring productName(std::wstring inRegistry, const KernelVersion& version) {
    constexpr std::uint32_t firstBuildOfWindows11 = 22000;
    constexpr std::wstring_view windows10 = L"Windows 10";
    if (inRegistry.empty()) return L"Windows";
    const bool windows11 =
        version.build >= firstBuildOfWindows11 && version.role == KernelVersion::Role::workstation;
    if (windows11 && inRegistry.starts_with(windows10))
        inRegistry.replace(0, windows10.size(), L"Windows 11");
    return inRegistry;
}

}  // namespace host::windows
