/// Facts of the machine on which the tests run: only what must hold on every machine.

#include <gtest/gtest.h>

#include <cwctype>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "runtime/host/windows/library.h"
#include "runtime/host/windows/windows_version.h"

namespace {

using host::Status;
using host::windows::KernelVersion;
using host::windows::productName;

TEST(HostSystem, FactsArePlausible) {
    const auto answer = host::system();
    ASSERT_TRUE(answer.found());
    const host::SystemFacts& facts = answer.value;

    wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(GetComputerNameW(computer, &size));
    EXPECT_EQ(facts.computerName, computer);
    EXPECT_TRUE(facts.windowsName.starts_with(L"Windows") || facts.windowsName.starts_with(L"Microsoft"));
    EXPECT_GE(facts.major, 6U);
    EXPECT_GE(facts.build, 6000U);
    EXPECT_EQ(facts.architecture, L"x64");
    EXPECT_FALSE(facts.is32Bit);
    EXPECT_GE(facts.processors, 1U);
    EXPECT_GE(facts.memoryBytes, std::uint64_t{64} << 20);
}

TEST(HostSystem, TheSystemStartedBeforeNowButNotLongBefore) {
    const auto answer = host::system();
    ASSERT_TRUE(answer.found() && answer.value.startTime.has_value());
    const host::LocalTime start = *answer.value.startTime;
    const host::LocalTime now = host::localTime();
    const auto asNumber = [](const host::LocalTime& time) {
        return ((time.year * 12LL + time.month) * 31 + time.day) * 86400 + time.hour * 3600 +
               time.minute * 60 + time.second;
    };
    EXPECT_LE(asNumber(start), asNumber(now) + 7200);
    EXPECT_GE(start.year, now.year - 5);
}

TEST(HostSystem, LocalTimeIsTheSystemsOwn) {
    SYSTEMTIME before{}, after{};
    GetLocalTime(&before);
    const host::LocalTime time = host::localTime();
    GetLocalTime(&after);
    if (before.wHour == after.wHour) {
        EXPECT_EQ(time.year, before.wYear);
        EXPECT_EQ(time.month, before.wMonth);
        EXPECT_EQ(time.day, before.wDay);
        EXPECT_EQ(time.hour, before.wHour);
    }
    EXPECT_LE(std::abs(time.offsetMinutes), 14 * 60);
}

TEST(HostSystem, Windows11IsCalledSo) {
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

TEST(HostSystem, TheBuildDecidesTheNameOfAServer) {
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

TEST(HostSystem, TheCodePageHasANumberAndItsNameAlone) {
    const auto answer = host::ansiCodePage();
    ASSERT_TRUE(answer.found());
    EXPECT_EQ(answer.value.number, GetACP());
    EXPECT_EQ(answer.value.name.find_first_of(L"()"), std::wstring::npos);
}

TEST(HostSystem, AdaptersHaveNamesAndNoLoopback) {
    const auto answer = host::adapters();
    ASSERT_TRUE(answer.found());
    for (const host::AdapterFacts& adapter : answer.value) {
        EXPECT_FALSE(adapter.name.empty());
        for (const std::wstring& address : adapter.addresses) {
            EXPECT_NE(address, L"127.0.0.1");
            EXPECT_NE(address, L"::1");
            EXPECT_NE(address, L"");
        }
    }
}

TEST(HostSystem, ErrorTextsAreOneLine) {
    for (const std::uint32_t code : {2U, 5U, 21U, 1018U, 1355U, 2221U}) {
        const std::wstring text = host::systemErrorText(code);
        EXPECT_FALSE(text.empty());
        EXPECT_NE(text, L"unknown error") << code;
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos);
        EXPECT_FALSE(std::iswspace(static_cast<std::wint_t>(text.back())));
    }
    EXPECT_EQ(host::systemErrorText(0x2EEEEEEE), L"unknown error");
}

TEST(HostSystem, ThereIsNothingInStoreForOperations) {
    EXPECT_FALSE(host::verdictsArePlanned());
    EXPECT_EQ(host::verdictOn(L"QVRegistry::mf_exists", L"x").kind, host::Verdict::Kind::proceed);
    EXPECT_EQ(host::processId(), GetCurrentProcessId());
}

TEST(HostSystem, AMissingLibraryOrFunctionIsAnErrorCode) {
    const host::windows::Library none(L"kvx-no-such-library.dll");
    const host::windows::Function<DWORD()> ofNone(none, "Any");
    EXPECT_FALSE(ofNone);
    EXPECT_EQ(ofNone.code(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));

    const host::windows::Library some(L"version.dll");
    const host::windows::Function<DWORD()> notInIt(some, "KvxNoSuchFunction");
    EXPECT_FALSE(notInIt);
    EXPECT_EQ(notInIt.code(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

TEST(HostSystem, TheProcessOwnsItsArguments) {
    wchar_t program[] = L"kvxinfo", keyword[] = L"version";
    wchar_t* arguments[] = {program, keyword, nullptr};
    const UINT modeBefore = SetErrorMode(0);
    const std::terminate_handler terminateBefore = std::get_terminate();
    {
        host::Process process(2, arguments);
        keyword[0] = L'X';
        EXPECT_TRUE(process.usable());
        ASSERT_EQ(process.argumentCount(), 2);
        EXPECT_STREQ(process.arguments()[0], L"kvxinfo");
        EXPECT_STREQ(process.arguments()[1], L"version");
        EXPECT_EQ(process.arguments()[2], nullptr);
        EXPECT_NE(SetErrorMode(SEM_FAILCRITICALERRORS) & SEM_FAILCRITICALERRORS, 0U);
    }
    std::set_terminate(terminateBefore);
    SetErrorMode(modeBefore);
}

}  // namespace
