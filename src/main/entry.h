#pragma once

/// The program: starts the client's runtime, runs the command line, stops the runtime. `argv` as the process
/// got it. Returns the exit status: 12 when the main singleton cannot be made, else the error value of a log
/// that cannot be started (`QVErrno::_E_`), else 0, however many reports failed.
int _tmain(int argc, wchar_t* argv[]);
