#include <unistd.h>

#include "runtime/host/described/console_output.h"
#include "runtime/host/host.h"

namespace host {

namespace {

described::OutputStream standardOutput(STDOUT_FILENO);

}  // namespace

bool writeConsole(std::wstring_view text) noexcept {
    return standardOutput.write(text);
}

bool flushConsole() noexcept {
    return standardOutput.flush();
}

}  // namespace host
