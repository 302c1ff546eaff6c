#pragma once

namespace made_up {

/// Lets the program call `replacement` where it imports `function` of `library`; nothing where it does not.
void replaceImport(const char* library, const char* function, void* replacement);

}  // namespace made_up
