/// Every fact, known and unknown.

#include "runtime/base/QVSystem.h"
#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class QVSystemDescribed : public DescribedMachine {};

TEST_F(QVSystemDescribed, TellsAllItKnows) {
    describe(
        "[system]\ncomputer = FS01\nwindows = Windows Server 2022 Standard\nrelease = 21H2\n"
        "version = 10.0.20348.2113\narchitecture = x64\nprocessor = Quick 3000\nprocessors = 8\n"
        "memory = 16 GB\nstarted = 2026-01-02 03:04:05\n"
        "adapter = LAN: 192.0.2.10, fe80::1\nadapter = Idle:\nadapter = Backup: 198.51.100.7\n"
        "[domain]\njoined = yes\nname = CORP\n");
    EXPECT_EQ(QVSystem::mf_toString(L"  ").units(),
              L"  Computer name:   FS01\r\n"
              L"  Domain:          CORP\r\n"
              L"  Windows:         Windows Server 2022 Standard 21H2\r\n"
              L"  Version:         10.0.20348.2113 (x64)\r\n"
              L"  Processors:      8 (Quick 3000)\r\n"
              L"  Memory:          16 GB\r\n"
              L"  Started:         2026-01-02 03:04:05\r\n"
              L"  IP addresses:    192.0.2.10 (LAN)\r\n"
              L"                   fe80::1 (LAN)\r\n"
              L"                   198.51.100.7 (Backup)");
    EXPECT_EQ(QVSystem::mf_getSystemVersionString(),
              L"Windows Server 2022 Standard 21H2, version 10.0.20348.2113 (x64)");
}

TEST_F(QVSystemDescribed, FactsThatCameWithoutATextAreUnknown) {
    describe("");
    EXPECT_EQ(QVSystem::mf_toString(L"").units(),
              L"Computer name:   unknown\r\n"
              L"Workgroup:       WORKGROUP\r\n"
              L"Windows:         unknown\r\n"
              L"Version:         0.0.0.0 (unknown)\r\n"
              L"Processors:      unknown\r\n"
              L"Memory:          unknown\r\n"
              L"Started:         unknown\r\n"
              L"IP addresses:    none");
    EXPECT_EQ(QVSystem::mf_getSystemVersionString(), L"unknown, version 0.0.0.0 (unknown)");
}

TEST_F(QVSystemDescribed, WhatCannotBeLearntIsNamedWithTheReason) {
    describe(
        "[system]\n! error 31 system\n! refused adapters\n! error 21 code page\n[domain]\n"
        "! error 1722 membership\n");
    EXPECT_EQ(QVSystem::mf_toString(L"\t").units(),
              L"\tSystem:          unknown, system error 31: " + host::systemErrorText(31) +
                  L"\r\n\tDomain:          unknown, system error 1722: The RPC server is unavailable."
                  L"\r\n\tIP addresses:    unknown, system error 5: Access is denied.");
    EXPECT_EQ(QVSystem::mf_getSystemVersionString().units(),
              L"unknown, system error 31: " + host::systemErrorText(31));
    EXPECT_EQ(QVSystem::mf_getDefaultAnsiCodepage().units(),
              L"unknown, system error 21: " + host::systemErrorText(21));
    EXPECT_EQ(QVSystem::mf_isAtLeastW2003(0), 0);
    EXPECT_EQ(QVSystem::mf_is32Bit(), 0);
}

TEST_F(QVSystemDescribed, WindowsServer2003IsVersion52) {
    const auto isAtLeast = [](const std::string& version) {
        describe("[system]\nversion = " + version + "\n");
        return QVSystem::mf_isAtLeastW2003(0) != 0;
    };
    EXPECT_FALSE(isAtLeast("4.10.0.0"));
    EXPECT_FALSE(isAtLeast("5.1.2600.0"));
    EXPECT_TRUE(isAtLeast("5.2.3790.0"));
    EXPECT_TRUE(isAtLeast("6.0.6002.0"));
    EXPECT_TRUE(isAtLeast("10.0.22631.0"));
}

TEST_F(QVSystemDescribed, WidthAndCodePage) {
    describe("[system]\n32bit = yes\ncode page = 932 ANSI/OEM - Japanese\n");
    EXPECT_NE(QVSystem::mf_is32Bit(), 0);
    EXPECT_EQ(QVSystem::mf_getDefaultAnsiCodepage(), L"932 (ANSI/OEM - Japanese)");
    describe("[system]\ncode page = 65001\n");
    EXPECT_EQ(QVSystem::mf_is32Bit(), 0);
    EXPECT_EQ(QVSystem::mf_getDefaultAnsiCodepage(), L"65001");
}

}  // namespace
