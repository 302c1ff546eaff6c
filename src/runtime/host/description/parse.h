#pragma once

/// A description, read.

#include "runtime/host/description/machine.h"
#include "runtime/host/description/mistakes.h"
#include "runtime/host/description/source.h"

namespace description {

/// The machine of the description `name`: a text file, or a folder that holds "machine.txt". Whatever is
/// wrong goes to `mistakes`; the machine is then what could be understood.
Machine parseMachine(const SourceFiles& files, const std::string& name, Mistakes& mistakes);

}  // namespace description
