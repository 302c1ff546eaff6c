#include "main/usage.h"

#include "runtime/base/QVString.h"
#include "runtime/util/QVTerminalPrinter.h"

void mf_implPrintUsage(unsigned int* usageShown) {
    *usageShown = 1;
    QVTerminalPrinter::mf_print(QVString(3348, CString(logFileName)));
}
