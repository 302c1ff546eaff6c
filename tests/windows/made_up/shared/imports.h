#pragma once

#include "runtime/host/os.h"

namespace made_up {

/// Lets the program call `replacement` where it imports `function` of `library`; nothing where it does not.
void replaceImport(const char* library, const char* function, void* replacement);

/// Keeps the library that holds this loaded: the program may call into it until it ends.
void stayLoaded(HINSTANCE library);

}  // namespace made_up
