#pragma once

#include "runtime/base/CString.h"

class QVCmdline;
class QVInstallationChecker;

/// Runs the report that `keyword` names (in any case), or with "all", and whenever `*errorsOnly` is set,
/// every report that belongs to "all", in the order of the register. With `*errorsOnly` only what found a
/// problem is printed. "help" prints the usage. An unknown keyword is said so in the report. Catches nothing.
void mf_doKeyword(QVInstallationChecker& checker, const CString& keyword, unsigned int* errorsOnly,
                  unsigned int* usageShown, QVCmdline& cmdline);
