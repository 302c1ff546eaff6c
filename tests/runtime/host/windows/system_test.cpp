#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace {

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

TEST(HostSystem, TheCodePageHasANumberAndItsNameAlone) {
    const auto answer = host::ansiCodePage();
    ASSERT_TRUE(answer.found());
    EXPECT_EQ(answer.value.number, GetACP());
    EXPECT_EQ(answer.value.name.find_first_of(L"()"), std::wstring::npos);
}

}  // namespace
