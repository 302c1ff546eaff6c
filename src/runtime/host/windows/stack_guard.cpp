/// What code that guards its stack calls and compares with. The compiler's own library asks the cryptographic
/// provider for the value: that loads a dozen libraries before the program can say where they must come from,
/// and takes longer than all the rest of the start.

#if defined(__MINGW32__) && defined(__x86_64__)

#include <bit>
#include <cstdint>
#include <initializer_list>

#include "runtime/host/os.h"

extern "C" {

extern std::uintptr_t __stack_chk_guard;
std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail();
[[noreturn]] void __chk_fail();
}

namespace {

/// Spreads every bit of `value` over the whole result (the finalizer of SplitMix64).
constexpr std::uint64_t spread(std::uint64_t value) noexcept {
    value += 0x9E3779B97F4A7C15U;
    value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31U);
}

/// Sets the value before any constructor of the program runs, from what differs from run to run: clocks,
/// process, thread, and where the system put program and stack. Guards nothing itself: it would see the value
/// change.
__attribute__((constructor(101), no_stack_protector, used)) void setGuard() {
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    std::uint64_t value = 0;
    for (const std::uint64_t part :
         {std::bit_cast<std::uint64_t>(time), static_cast<std::uint64_t>(ticks.QuadPart),
          (std::uint64_t{GetCurrentProcessId()} << 32U) | GetCurrentThreadId(),
          static_cast<std::uint64_t>(std::bit_cast<std::uintptr_t>(&__stack_chk_guard)),
          static_cast<std::uint64_t>(std::bit_cast<std::uintptr_t>(&time))}) {
        value = spread(value ^ part);
    }
    // A zero in front: text that runs on over the guard ends there.
    __stack_chk_guard = value << 8U;
}

/// Ends the process as Windows wants it ended when memory cannot be trusted any more: at once, without
/// calling anything in it.
[[noreturn]] void failFast(unsigned int reason) {
    __asm__ volatile("int $0x29" : : "c"(reason) : "memory");
    __builtin_unreachable();
}

}  // namespace

void __stack_chk_fail() {
    failFast(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE);
}

void __chk_fail() {
    failFast(FAST_FAIL_RANGE_CHECK_FAILURE);
}

#endif
