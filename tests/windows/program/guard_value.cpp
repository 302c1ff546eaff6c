/// Prints what guards the stacks of this process.

#include <cstdint>
#include <cstdio>

extern "C" std::uintptr_t __stack_chk_guard;

int wmain() {
    std::printf("%016llx\n", static_cast<unsigned long long>(__stack_chk_guard));
    return 0;
}
