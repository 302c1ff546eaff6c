#pragma once

/// Moments in the machine's time zone.

#include "runtime/host/facts.h"
#include "runtime/host/os.h"

namespace host::windows {

/// `utc` by the machine's clock on the wall, with the rules of daylight saving of its year.
LocalTime onTheWall(const SYSTEMTIME& utc);

/// The moment that lies `milliseconds` back.
SYSTEMTIME utcBefore(std::uint64_t milliseconds);

}  // namespace host::windows
