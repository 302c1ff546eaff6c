#include "runtime/host/windows/windows_version.h"

#include <gtest/gtest.h>

namespace {

using host::windows::KernelVersion;
using host::windows::productName;

TEST(HostWindowsVersion, Windows11IsCalledSo) {
    const KernelVersion windows10{10, 0, 19045, KernelVersion::Role::workstation};
    const KernelVersion windows11{10, 0, 26100, KernelVersion::Role::workstation};
    const KernelVersion server2025{10, 0, 26100, KernelVersion::Role::server};
    EXPECT_EQ(productName(L"Windows 10 Pro", windows10), L"Windows 10 Pro");
    EXPECT_EQ(productName(L"Windows 10 Pro", windows11), L"Windows 11 Pro");
    EXPECT_EQ(productName(L"Windows Server 2025 Standard", server2025), L"Windows Server 2025 Standard");
    EXPECT_EQ(productName(L"", windows11), L"Windows 11");
    EXPECT_EQ(productName(L"", windows10), L"Windows 10");
    EXPECT_EQ(productName(L"", {6, 3, 9600}), L"Windows");
}

TEST(HostWindowsVersion, TheBuildDecidesTheNameOfAServer) {
    const auto server = [](std::uint32_t build) {
        return KernelVersion{10, 0, build, KernelVersion::Role::domainController};
    };
    EXPECT_EQ(productName(L"Windows Server 2016 Standard", server(14393)), L"Windows Server 2016 Standard");
    EXPECT_EQ(productName(L"Windows Server 2019 Datacenter", server(17763)),
              L"Windows Server 2019 Datacenter");
    EXPECT_EQ(productName(L"Windows Server 2022 Datacenter", server(25398)),
              L"Windows Server 23H2 Datacenter");
    EXPECT_EQ(productName(L"Windows Server 2022", server(26100)), L"Windows Server 2025");
    EXPECT_EQ(productName(L"Windows Server Datacenter", server(17763)), L"Windows Server Datacenter");
    EXPECT_EQ(productName(L"Windows 10 Enterprise multi-session", server(22631)),
              L"Windows 11 Enterprise multi-session");
    EXPECT_EQ(productName(L"Windows Server 2012 R2 Essentials", {6, 3, 9600, KernelVersion::Role::server}),
              L"Windows Server 2012 R2 Essentials");
    EXPECT_EQ(productName(L"Hyper-V Server 2019", server(17763)), L"Hyper-V Server 2019");
    EXPECT_EQ(productName(L"Windows Server Standard", server(18363)), L"Windows Server Standard");
    EXPECT_EQ(productName(L"", server(20348)), L"Windows Server 2022");
    EXPECT_EQ(productName(L"", server(99999)), L"Windows Server");
}

}  // namespace
