#pragma once

/// The environment variables of the described machine.

#include <string>
#include <string_view>

#include "runtime/host/description/machine.h"

namespace description {

/// The text with every "%NAME%" replaced by the machine's variable; unknown ones stay as they are.
std::wstring expanded(const Machine& machine, std::wstring_view text);

}  // namespace description
