#pragma once

/// The environment variables of the described machine.

#include <string>
#include <string_view>

#include "runtime/host/described/machine.h"

namespace described {

/// The text with every "%NAME%" replaced by the machine's variable; unknown ones stay as they are.
std::wstring expanded(const Machine& machine, std::wstring_view text);

}  // namespace described
