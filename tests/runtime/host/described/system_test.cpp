#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using System = DescribedMachine;

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

TEST_F(System, ClearForgetsTheBase) {
    describe("[system]\ncomputer = A\nrelease = 1\n[system]\nclear\nrelease = 2\n");
    EXPECT_EQ(host::system().value.computerName, L"");
    EXPECT_EQ(host::system().value.release, L"2");
}

}  // namespace
