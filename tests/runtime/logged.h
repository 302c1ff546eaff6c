#pragma once

/// What is written to the log, as tests look at it.

#include <string>

#include "runtime/base/QVLog.h"
#include "tests/files.h"

/// The bytes of the log that runs while `act` does, in a folder of its own.
template <class Act>
std::string logOf(Act act) {
    const TemporaryDirectory here;
    QVLog::start(L"kvx.log");
    act();
    QVLog::stop();
    return fileBytes("kvx.log");
}
