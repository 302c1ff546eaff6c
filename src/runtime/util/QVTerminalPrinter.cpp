#include "runtime/util/QVTerminalPrinter.h"

#include "runtime/base/QVLog.h"
#include "runtime/host/host.h"

void QVTerminalPrinter::mf_print(const wchar_t* text) noexcept {
    host::writeConsole(text);
}

void QVTerminalPrinter::flush() noexcept {
    host::flushConsole();
}

void QVTerminalPrinter::complete() noexcept {
    if (host::flushConsole()) return;
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"QVTerminalPrinter::complete",
                           L"Console output could not be written; the rest of it is lost");
}
