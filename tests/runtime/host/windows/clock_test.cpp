#include "runtime/host/windows/clock.h"

#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(HostClock, LocalTimeIsTheSystemsOwn) {
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

}  // namespace
