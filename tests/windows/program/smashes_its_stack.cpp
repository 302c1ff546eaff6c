/// Writes beyond the end of a local array. The guard must notice it before the function returns.

#include <cstdio>
#include <cwchar>

namespace {

/// Writes through a pointer of which the compiler knows nothing.
void fill(volatile char* begin, int size) {
    for (int i = 0; i < size; ++i)
        begin[i] = 'x';
}

[[gnu::noinline]] int overrun(int size) {
    volatile char room[16];
    fill(room, size);
    return room[0];
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) return 2;
    constexpr int decimal = 10;
    std::printf("%c\n", overrun(static_cast<int>(wcstol(argv[1], nullptr, decimal))));
    return 0;
}
