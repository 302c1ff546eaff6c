#pragma once

/// The machine that is examined.

#include <cstdint>
#include <string>

#include "runtime/host/description/directory.h"
#include "runtime/host/description/failures.h"
#include "runtime/host/description/machine.h"
#include "runtime/host/description/mistakes.h"
#include "runtime/host/description/source.h"

namespace description {

/// The machine being examined. Without an earlier `load`, that of `descriptionName()`.
const Machine& machine();
const Directory& directory();
FailurePlan& failurePlan();

/// How many questions were put to the machine since it was loaded that a real one would have asked another
/// computer: a controller, or for an account of the domain.
std::uint64_t remoteQuestions();
void countRemoteQuestion();

/// The name that the environment variable KVXINFO_MACHINE holds; the embedded sample without it.
std::string descriptionName();

/// Examines the machine of a description from now on, with every count at its start. Returns what is wrong
/// with it.
Mistakes load(const SourceFiles& files, const std::string& name);

/// The same for the text of a description, as the file "machine.txt".
Mistakes loadText(std::string text);

}  // namespace description
