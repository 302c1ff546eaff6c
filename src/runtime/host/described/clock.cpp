#include <time.h>

#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

LocalTime localTime() {
    if (description::machine().system.now) return *description::machine().system.now;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts{};
    localtime_r(&now.tv_sec, &parts);
    LocalTime time;
    time.year = parts.tm_year + 1900;
    time.month = parts.tm_mon + 1;
    time.day = parts.tm_mday;
    time.hour = parts.tm_hour;
    time.minute = parts.tm_min;
    time.second = parts.tm_sec;
    time.millisecond = static_cast<int>(now.tv_nsec / 1000000);
    time.offsetMinutes = static_cast<int>(parts.tm_gmtoff / 60);
    return time;
}

}  // namespace host
