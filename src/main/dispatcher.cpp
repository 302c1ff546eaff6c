#include "main/dispatcher.h"

#include "checker/QVInstallationChecker.h"
#include "main/report_register.h"
#include "main/usage.h"
#include "runtime/base/QVString.h"
#include "runtime/util/QVTerminalPrinter.h"

namespace {

void runReport(const Report& report, QVInstallationChecker& checker, bool errorsOnly) {
    QVTerminalPrinter::flush();
    if (report.print != nullptr) {
        report.print(checker, errorsOnly ? 1 : 0);
        return;
    }
    int problem = report.preset;
    const CString text = report.text(checker, &problem);
    const bool shown = !errorsOnly || (report.inErrorsOnly == InErrorsOnly::ifProblem && problem != 0);
    if (shown) checker.mf_implPrint(text);
}

}  // namespace

void mf_doKeyword(QVInstallationChecker& checker, const CString& keyword, unsigned int* errorsOnly,
                  unsigned int* usageShown, QVCmdline&) {
    CString lowerCase = keyword;
    lowerCase.MakeLower();
    const bool allMode = *errorsOnly != 0 || lowerCase == L"all";
    if (lowerCase == L"help") {
        mf_implPrintUsage(usageShown);
        return;
    }
    for (const Report& report : reports()) {
        const bool inTurn = allMode && report.inAll;
        if (!inTurn && !(lowerCase == report.keyword)) continue;
        runReport(report, checker, *errorsOnly != 0);
        if (!allMode) return;
    }
    if (!allMode) checker.mf_implPrint(QVString(3349, keyword));
}
