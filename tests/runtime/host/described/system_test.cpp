#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class System : public DescribedMachine {};

}  // namespace

TEST_F(System, TellsWhatIsDescribed) {
    describe(
        "[system]\ncomputer = WS01\nwindows = Windows Server 2022 Standard\nrelease = 21H2\n"
        "version = 10.0.20348.2113\n"
        "server = yes\n32bit = yes\narchitecture = arm64\nprocessor = Fast #1  # two blanks begin a comment\n"
        "processors = 24\nmemory = 1.5 GB\nstarted = 2026-11-19 07:30:05\n");
    const auto answer = host::system();
    ASSERT_TRUE(answer.found());
    const host::SystemFacts& facts = answer.value;
    EXPECT_EQ(facts.computerName, L"WS01");
    EXPECT_EQ(facts.windowsName, L"Windows Server 2022 Standard");
    EXPECT_EQ(facts.release, L"21H2");
    EXPECT_EQ(facts.major, 10U);
    EXPECT_EQ(facts.minor, 0U);
    EXPECT_EQ(facts.build, 20348U);
    EXPECT_EQ(facts.revision, 2113U);
    EXPECT_TRUE(facts.server);
    EXPECT_TRUE(facts.is32Bit);
    EXPECT_EQ(facts.architecture, L"ARM64");
    EXPECT_EQ(facts.processorName, L"Fast #1");
    EXPECT_EQ(facts.processors, 24U);
    EXPECT_EQ(facts.memoryBytes, 1610612736U);
    ASSERT_TRUE(facts.startTime);
    EXPECT_EQ(facts.startTime->day, 19);
    EXPECT_EQ(facts.startTime->second, 5);
}

TEST_F(System, AnEmptyDescriptionIsAMachineToo) {
    describe("");
    EXPECT_TRUE(host::system().found());
    EXPECT_FALSE(host::system().value.startTime);
    EXPECT_EQ(host::ansiCodePage().value.number, 1252U);
    EXPECT_TRUE(host::adapters().value.empty());
    EXPECT_TRUE(host::volumes().value.empty());
    EXPECT_TRUE(host::cluster().isMissing());
    EXPECT_TRUE(host::service(L"rkhsmdrv").isMissing());
    EXPECT_FALSE(host::membership().value.joined);
    EXPECT_EQ(host::membership().value.domainName, L"WORKGROUP");
}

TEST_F(System, ListsAdaptersAndReplacesThoseOfTheBase) {
    describe(
        "[system]\nadapter = Ethernet #2: 192.0.2.10, fe80::1\nadapter = Idle:\n"
        "adapter = ethernet #2: 192.0.2.11\n");
    const auto adapters = host::adapters();
    ASSERT_EQ(adapters.value.size(), 2U);
    EXPECT_EQ(adapters.value[0].name, L"ethernet #2");
    EXPECT_EQ(adapters.value[0].addresses, std::vector<std::wstring>{L"192.0.2.11"});
    EXPECT_EQ(adapters.value[1].name, L"Idle");
    EXPECT_TRUE(adapters.value[1].addresses.empty());
}

TEST_F(System, CodePage) {
    describe("[system]\ncode page = 932 ANSI/OEM - Japanese\n");
    EXPECT_EQ(host::ansiCodePage().value.number, 932U);
    EXPECT_EQ(host::ansiCodePage().value.name, L"ANSI/OEM - Japanese");
    describe("[system]\ncode page = 65001\n");
    EXPECT_EQ(host::ansiCodePage().value.name, L"");
}

TEST_F(System, NaturalCauses) {
    describe("[system]\n! error 31 system\n! refused adapters\n! refused 1314 code page\n");
    EXPECT_EQ(host::system().status, host::Status::failed);
    EXPECT_EQ(host::system().failure.code, 31U);
    EXPECT_EQ(host::adapters().status, host::Status::refused);
    EXPECT_EQ(host::adapters().failure.code, 5U);
    EXPECT_EQ(host::ansiCodePage().status, host::Status::refused);
    EXPECT_EQ(host::ansiCodePage().failure.code, 1314U);
}

TEST_F(System, CodesThatRefuseAreRefusedHoweverTheyAreWritten) {
    describe("[system]\n! error 5 system\n! error 0x41 adapters\n! error 0x80310000 code page\n");
    EXPECT_EQ(host::system().status, host::Status::refused);
    EXPECT_EQ(host::adapters().status, host::Status::refused);
    EXPECT_EQ(host::ansiCodePage().status, host::Status::failed);
    EXPECT_EQ(host::ansiCodePage().failure.code, 0x80310000U);
}

TEST_F(System, TheDescribedClockStandsStill) {
    describe("[system]\nnow = 2026-11-20 08:15:00.250 -03:30\n");
    const host::LocalTime now = host::localTime();
    EXPECT_EQ(now.year, 2026);
    EXPECT_EQ(now.month, 11);
    EXPECT_EQ(now.hour, 8);
    EXPECT_EQ(now.minute, 15);
    EXPECT_EQ(now.millisecond, 250);
    EXPECT_EQ(now.offsetMinutes, -210);
}

TEST_F(System, WithoutOneTheClockIsThatOfThisComputer) {
    describe("");
    const std::time_t seconds = std::time(nullptr);
    const host::LocalTime now = host::localTime();
    const int year = std::gmtime(&seconds)->tm_year + 1900;
    EXPECT_GE(now.year, year - 1);
    EXPECT_LE(now.year, year + 1);
    EXPECT_GE(now.month, 1);
    EXPECT_LE(now.month, 12);
}

TEST_F(System, ClearForgetsTheBase) {
    describe("[system]\ncomputer = A\nrelease = 1\n[system]\nclear\nrelease = 2\n");
    EXPECT_EQ(host::system().value.computerName, L"");
    EXPECT_EQ(host::system().value.release, L"2");
}

TEST_F(System, ErrorTexts) {
    EXPECT_EQ(host::systemErrorText(5), L"Access is denied.");
    EXPECT_EQ(host::systemErrorText(2), L"The system cannot find the file specified.");
    EXPECT_EQ(host::systemErrorText(1722), L"The RPC server is unavailable.");
    EXPECT_EQ(host::systemErrorText(0), L"The operation completed successfully.");
    EXPECT_EQ(host::systemErrorText(4711), L"unknown error");
    EXPECT_EQ(host::systemErrorText(0xFFFFFFFFU), L"unknown error");
}

TEST_F(System, EveryErrorTextIsFoundAndIsOneLine) {
    int known = 0;
    for (std::uint32_t code = 0; code < 11000; ++code) {
        const std::wstring text = host::systemErrorText(code);
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos) << code;
        EXPECT_FALSE(text.empty()) << code;
        if (text != L"unknown error") ++known;
    }
    EXPECT_GE(known, 60);
}
