/// Prints the code pages of the console: that of its output, then that of its input.

#include <windows.h>

#include <cstdio>

int wmain() {
    std::printf("%u %u\n", GetConsoleOutputCP(), GetConsoleCP());
    return 0;
}
