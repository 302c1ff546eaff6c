#pragma once

/// The described machine for which the stand-in libraries answer.

#include "runtime/host/description/directory.h"
#include "runtime/host/description/machine.h"

namespace made_up {

/// What the description says that the environment variable KVX_MADE_UP_MACHINE names, read anew whenever it
/// names another one. Without a description, or with a faulty one, the process ends (`endProcess`).
const description::Machine& machine();
const description::Directory& directory();

/// A variable of the environment; empty where it is not set.
std::wstring variable(const wchar_t* name);

/// Says on standard error what a test did wrong and ends the process with exit status 64: a machine other
/// than the one that was meant must not answer.
[[noreturn]] void endProcess(const std::string& why);

}  // namespace made_up
