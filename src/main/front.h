#pragma once

class QVInstallationChecker;

/// The command line: prints the banner, takes the options "save" and "errors" out of the arguments and hands
/// each that is left, in order, to the dispatcher. Sets `*usageShown` to 1 when the usage was printed. What
/// the dispatcher throws passes through.
void mf_run(QVInstallationChecker& checker, int argc, wchar_t* argv[], unsigned int* usageShown);
