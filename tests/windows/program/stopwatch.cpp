/// stopwatch TIMES COMMAND...   runs the commands in turn, TIMES rounds of them, with their output thrown
/// away. One line for each run: which command, counted from 0, and the microseconds from its start to its
/// end. Ends with 1, and says why, as soon as a command cannot be started or ends with another status than 0.

#include <cstdio>
#include <string>

#include "runtime/host/windows/handle.h"

namespace {

/// What a process leaves to be cleared away must not be charged to the next one.
constexpr DWORD settle = 20;

using host::windows::FileHandle;
using ProcessHandle = host::windows::Owner<host::windows::NullableTraits<HANDLE, CloseHandle>>;

long long now() {
    LARGE_INTEGER ticks{}, ticksOfSecond{};
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&ticksOfSecond);
    constexpr long long microseconds = 1'000'000;
    return ticks.QuadPart * microseconds / ticksOfSecond.QuadPart;
}

/// The process's exit status; the error code where it cannot be started.
DWORD run(std::wstring command, HANDLE output) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &started)) {
        return GetLastError();
    }
    const ProcessHandle process(started.hProcess);
    const ProcessHandle thread(started.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    DWORD status = 1;
    GetExitCodeProcess(process.get(), &status);
    return status;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) return 2;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const FileHandle nowhere(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!nowhere) return 2;
    const int times = std::stoi(argv[1]);
    for (int round = 0; round < times; ++round) {
        for (int i = 2; i < argc; ++i) {
            Sleep(settle);
            const long long begin = now();
            const DWORD status = run(argv[i], nowhere.get());
            const long long end = now();
            if (status != 0) {
                std::fprintf(stderr, "%ls: %lu\n", argv[i], status);
                return 1;
            }
            std::printf("%d %lld\n", i - 2, end - begin);
        }
    }
    return 0;
}
