#pragma once

/// The register of reports: one row for each keyword, in the order in which "all" runs them.

#include <span>

#include "runtime/base/CString.h"

class QVInstallationChecker;

/// Whether the text of a report is shown when only problems are.
enum class InErrorsOnly { ifProblem, never };

/// One row. It either has `text`, which the dispatcher prints, or `print`.
struct Report {
    const wchar_t* keyword;  ///< lower case; the report's name everywhere
    bool inAll;              ///< whether "all" and errors-only mode run it

    /// Returns the whole text to print and sets `*problem`.
    CString (*text)(QVInstallationChecker& checker, int* problem);
    int preset;                 ///< the problem flag before `text` runs
    InErrorsOnly inErrorsOnly;  ///< for `text`

    /// Prints by itself, in errors-only mode only when there is a problem.
    void (*print)(QVInstallationChecker& checker, int errorsOnly);
};

/// All rows; they live as long as the program.
std::span<const Report> reports();
