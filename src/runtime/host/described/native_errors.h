#pragma once

/// Errors of this computer, as Windows names them.

#include <cstdint>

#include "runtime/host/description/machine.h"

namespace described {

/// The code of Windows for an errno value.
std::uint32_t windowsCodeOf(int error);

/// The cause that a failing call of this computer is.
description::Cause nativeCause(int error);

}  // namespace described
