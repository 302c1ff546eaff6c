#pragma once

/// A description, read.

#include "runtime/host/described/machine.h"
#include "runtime/host/described/mistakes.h"
#include "runtime/host/described/source.h"

namespace described {

/// The machine of the description `name`: a text file, or a folder that holds "machine.txt". Whatever is
/// wrong goes to `mistakes`; the machine is then what could be understood.
Machine parseMachine(const SourceFiles& files, const std::string& name, Mistakes& mistakes);

}  // namespace described
