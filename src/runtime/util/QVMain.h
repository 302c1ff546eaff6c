#pragma once

/// The main singleton of the client's runtime: the services are started and stopped through it. Every start
/// throws `QVErrno` on failure; stopping what never started is harmless.

#include "runtime/base/CString.h"

class QVMain {
public:
    /// Makes the singleton. The number is the program's kind of client: 1, a console program.
    static void mf_createInstance(int kind);
    static void mf_deleteInstance();

    /// Opens the trace log `logFileName` in the current directory (`QVLog::start`).
    static void mf_startLogging(const CString& logFileName);
    /// Closes the log.
    static int mf_stopLogging();

    /// Starts the storage service (`QVStorage`). The number is a set of flags; 0: none.
    static void mf_startStorage(int flags);
    static int mf_stopStorage();

    /// Makes the process-wide domain-controller instance (`QVDomainController`); asks no controller yet.
    static void mf_startDomainController(int flags);
    static int mf_stopDomainController();
};
