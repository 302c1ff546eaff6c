/// Imports a library that can be planted: when it starts or, linked so, when it first calls it.

#include <windows.h>

#include <lm.h>

int wmain() {
    return NetApiBufferFree(nullptr) == 0 ? 0 : 1;
}
