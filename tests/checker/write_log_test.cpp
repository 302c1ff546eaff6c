#include "checker/write_log.h"

#include <gtest/gtest.h>

#include "tests/files.h"

namespace {

TEST(WriteLog, AnErrorStandsForItsText) {
    const TemporaryDirectory here;
    QVLog::start(L"kvx.log");
    writeLog(QVLogData::LEVEL_E, L"Checker::mf_check", L"Failure of %s: %s", L"a check",
             QVErrno(QVErrnoData(QVErrno::_E_::Unspecific, L"why")));
    QVLog::stop();
    const std::string log = fileBytes("kvx.log");
    const std::string record = "] E Checker::mf_check: Failure of a check: Operation failed: why\r\n";
    EXPECT_TRUE(log.ends_with(record)) << log;
}

}  // namespace
