#include "runtime/host/windows/clock.h"

#include "runtime/host/host.h"

namespace host {

namespace windows {

namespace {

constexpr std::int64_t ticksOfMillisecond = 10'000;
constexpr std::int64_t ticksOfMinute = 60'000 * ticksOfMillisecond;

std::int64_t ticks(const FILETIME& time) {
    const std::uint64_t value = (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime;
    return static_cast<std::int64_t>(value);
}

std::int64_t ticks(const SYSTEMTIME& time) {
    FILETIME counted{};
    SystemTimeToFileTime(&time, &counted);
    return ticks(counted);
}

}  // namespace

LocalTime onTheWall(const SYSTEMTIME& utc) {
    TIME_ZONE_INFORMATION zone{};
    const bool known = GetTimeZoneInformationForYear(utc.wYear, nullptr, &zone) != 0;
    SYSTEMTIME local{};
    if (!SystemTimeToTzSpecificLocalTime(known ? &zone : nullptr, &utc, &local)) local = utc;

    LocalTime time;
    time.year = local.wYear;
    time.month = local.wMonth;
    time.day = local.wDay;
    time.hour = local.wHour;
    time.minute = local.wMinute;
    time.second = local.wSecond;
    time.millisecond = local.wMilliseconds;
    time.offsetMinutes = static_cast<int>((ticks(local) - ticks(utc)) / ticksOfMinute);
    return time;
}

SYSTEMTIME utcBefore(std::uint64_t milliseconds) {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const std::int64_t then = ticks(now) - static_cast<std::int64_t>(milliseconds) * ticksOfMillisecond;
    FILETIME counted{};
    counted.dwLowDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(then) & 0xFFFFFFFF);
    counted.dwHighDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(then) >> 32);
    SYSTEMTIME utc{};
    FileTimeToSystemTime(&counted, &utc);
    return utc;
}

}  // namespace windows

LocalTime localTime() {
    SYSTEMTIME utc{};
    GetSystemTime(&utc);
    return windows::onTheWall(utc);
}

}  // namespace host
