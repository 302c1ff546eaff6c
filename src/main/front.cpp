#include "main/front.h"

#include "checker/QVInstallationChecker.h"
#include "checker/report_file.h"
#include "main/dispatcher.h"
#include "main/usage.h"
#include "runtime/base/QVString.h"
#include "runtime/util/QVCmdline.h"
#include "runtime/util/QVTerminalPrinter.h"

namespace {

/// Prints the version of the client that this program belongs to.
void mf_implPrintBanner() {
    QVTerminalPrinter::mf_print(QVString(3254, 6U, 1U, 5U, 2U, L"2014"));
}

/// Takes one of the two spellings out of the arguments; the second only where the first is absent.
bool takeOption(QVCmdline& cmdline, const CString& lowerCase, const CString& upperCase) {
    return cmdline.mf_getArgument(lowerCase, 1) != 0 || cmdline.mf_getArgument(upperCase, 1) != 0;
}

}  // namespace

void mf_run(QVInstallationChecker& checker, int argc, wchar_t* argv[], unsigned int* usageShown) {
    QVCmdline cmdline(argc, argv);
    QVTerminalPrinter::mf_print(L"\n");
    mf_implPrintBanner();
    QVTerminalPrinter::mf_print(L"\n");
    if (cmdline.mf_getSize() == 0) {
        mf_implPrintUsage(usageShown);
        return;
    }

    const bool save = takeOption(cmdline, L"save", L"SAVE");
    if (save) checker.mf_implOpenFile();

    unsigned int errorsOnly = 0;
    if (takeOption(cmdline, L"errors", L"ERRORS")) {
        if (cmdline.mf_getSize() != 0) {
            QVTerminalPrinter::mf_print(QVString(3271));
            return;
        }
        errorsOnly = 1;
        mf_doKeyword(checker, CString(), &errorsOnly, usageShown, cmdline);
    } else {
        CString keyword;
        while (cmdline.mf_getSize() != 0 && cmdline.mf_getArgument(0, keyword, 1) != 0) {
            errorsOnly = 0;
            mf_doKeyword(checker, keyword, &errorsOnly, usageShown, cmdline);
        }
    }

    if (!save) return;
    if (checker.mf_isFileOpen()) {
        QVTerminalPrinter::mf_print(QVString(3325, reportFileName));
    } else {
        QVTerminalPrinter::mf_print(QVString(3326, reportFileName));
    }
}
