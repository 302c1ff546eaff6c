#include "checker/write_log.h"

#include <gtest/gtest.h>

#include "tests/runtime/logged.h"

namespace {

TEST(WriteLog, AnErrorStandsForItsText) {
    const std::string log = logOf([] {
        writeLog(QVLogData::LEVEL_E, L"Checker::mf_check", L"Failure of %s: %s", L"a check",
                 QVErrno(QVErrnoData(QVErrno::_E_::Unspecific, L"why")));
    });
    const std::string record = "] E Checker::mf_check: Failure of a check: Operation failed: why\r\n";
    EXPECT_TRUE(log.ends_with(record)) << log;
}

}  // namespace
