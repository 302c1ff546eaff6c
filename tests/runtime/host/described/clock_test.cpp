#include <ctime>

#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Clock = DescribedMachine;

TEST_F(Clock, TheDescribedClockStandsStill) {
    describe("[system]\nnow = 2026-11-20 08:15:00.250 -03:30\n");
    const host::LocalTime now = host::localTime();
    EXPECT_EQ(now.year, 2026);
    EXPECT_EQ(now.month, 11);
    EXPECT_EQ(now.hour, 8);
    EXPECT_EQ(now.minute, 15);
    EXPECT_EQ(now.millisecond, 250);
    EXPECT_EQ(now.offsetMinutes, -210);
}

TEST_F(Clock, WithoutOneTheClockIsThatOfThisComputer) {
    describe("");
    const std::time_t seconds = std::time(nullptr);
    const host::LocalTime now = host::localTime();
    const int year = std::gmtime(&seconds)->tm_year + 1900;
    EXPECT_GE(now.year, year - 1);
    EXPECT_LE(now.year, year + 1);
    EXPECT_GE(now.month, 1);
    EXPECT_LE(now.month, 12);
}

}  // namespace
