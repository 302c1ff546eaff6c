#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "runtime/host/description/state.h"
#include "runtime/host/host.h"
#include "runtime/host/utf.h"

#ifdef KVX_COVERAGE
extern "C" void __gcov_dump();
#endif

namespace host {

namespace {

/// What ran counts, also when the run ends early.
void recordCoverage() {
#ifdef KVX_COVERAGE
    __gcov_dump();
#endif
}

/// However the run ends, what was reported so far is complete: on the console and in open files.
[[noreturn]] void endAfterFlush() {
    flushConsole();
    std::fflush(nullptr);
    recordCoverage();
    std::_Exit(Process::abortedExitStatus);
}

/// A stream that was closed when the program started would lend its number to the next file: console text
/// would go into the log. What is opened here cannot be written, so that the loss is noticed.
void occupyClosedStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) != -1) continue;
        if (open("/dev/null", O_RDONLY) != stream) return;
    }
}

}  // namespace

Process::Process(int argumentCount, char** arguments) {
    occupyClosedStreams();
    std::set_terminate(endAfterFlush);
    std::signal(SIGABRT, [](int) { endAfterFlush(); });
    std::signal(SIGPIPE, SIG_IGN);
    for (int index = 0; index < argumentCount; ++index)
        m_arguments.push_back(fromUtf8(arguments[index]));
    for (std::wstring& argument : m_arguments)
        m_pointers.push_back(argument.data());
    m_pointers.push_back(nullptr);
    const description::Mistakes mistakes =
        description::load(description::RealFiles(), description::descriptionName());
    if (!mistakes.any()) return;
    m_usable = false;
    std::fputs(mistakes.report().c_str(), stderr);
}

Process::~Process() {
    flushConsole();
}

std::uint32_t processId() {
    return static_cast<std::uint32_t>(getpid());
}

}  // namespace host
