#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace host {

namespace {

[[noreturn]] void completeOutputAndEnd() {
    flushConsole();
    std::fflush(nullptr);
    _exit(Process::abortedExitStatus);
}

extern "C" [[noreturn]] void completeOutputAndEndBySignal(int);

[[noreturn]] void completeOutputAndEndBySignal(int) {
    completeOutputAndEnd();
}

/// The crash itself stays the system's to report.
LONG WINAPI completeOutputOfCrash(EXCEPTION_POINTERS*) {
    flushConsole();
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

Process::Process(int argumentCount, wchar_t** arguments) {
    // An empty drive or a crash must not open a dialog: nobody may be there to close it.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    // System libraries load others in their turn; those too come from the system's folder only.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    std::set_terminate(completeOutputAndEnd);
    std::signal(SIGABRT, completeOutputAndEndBySignal);
    SetUnhandledExceptionFilter(completeOutputOfCrash);

    m_arguments.assign(arguments, arguments + argumentCount);
    for (std::wstring& argument : m_arguments)
        m_pointers.push_back(argument.data());
    m_pointers.push_back(nullptr);
}

Process::~Process() {
    flushConsole();
}

std::uint32_t processId() {
    return GetCurrentProcessId();
}

}  // namespace host
