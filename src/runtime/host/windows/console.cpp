#include "runtime/host/host.h"
#include "runtime/host/windows/console_output.h"

namespace host {

namespace {

windows::ConsoleOutput& standardOutput() noexcept {
    static windows::ConsoleOutput output(GetStdHandle(STD_OUTPUT_HANDLE),
                                         windows::ConsoleOutput::readersCodePage());
    return output;
}

}  // namespace

bool writeConsole(std::wstring_view text) noexcept {
    return standardOutput().write(text);
}

bool flushConsole() noexcept {
    return standardOutput().flush();
}

}  // namespace host
