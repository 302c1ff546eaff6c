#include "runtime/base/QVLog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "runtime/base/QVErrno.h"
#include "tests/files.h"

namespace {

constexpr const char* logName = "kvxlogtest.log";
constexpr const char* oldLogName = "kvxlogtest.old.log";
constexpr std::size_t eightMebibytes = 8U * 1024 * 1024;

/// A log in a folder of its own.
class QVLogTest : public testing::Test {
protected:
    ~QVLogTest() override { QVLog::stop(); }

    /// Makes a file of one line.
    static void fill(const char* name, std::size_t size) {
        makeFile(name, std::string(size - 1, 'x') + '\n');
    }

    TemporaryDirectory m_here;
};

TEST_F(QVLogTest, WritesNothingUnlessStarted) {
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"too early");
    EXPECT_FALSE(std::filesystem::exists(logName));
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"in time");
    QVLog::stop();
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"too late");
    const std::string text = fileBytes(logName);
    EXPECT_NE(text.find("] E test: in time\r\n"), std::string::npos);
    EXPECT_EQ(text.find("too"), std::string::npos);
}

TEST_F(QVLogTest, ARecordIsOnTheDiskBeforeTheNextStep) {
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"one %s", L"insert");
    EXPECT_NE(fileBytes(logName).find("one insert\r\n"), std::string::npos);
}

TEST_F(QVLogTest, IsAppendedTo) {
    fill(logName, 10);
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"more");
    QVLog::stop();
    EXPECT_EQ(fileBytes(logName).substr(0, 10), "xxxxxxxxx\n");
    EXPECT_EQ(fileBytes(logName).find("more\r\n"), fileBytes(logName).size() - 6);
    EXPECT_FALSE(std::filesystem::exists(oldLogName));
}

TEST_F(QVLogTest, GrowsOnUpToEightMebibytes) {
    fill(logName, eightMebibytes);
    QVLog::start(CString(logName));
    QVLog::stop();
    EXPECT_FALSE(std::filesystem::exists(oldLogName));
    EXPECT_EQ(fileBytes(logName).size(), eightMebibytes);
}

TEST_F(QVLogTest, IsRenamedAboveEightMebibytesAndReplacesAnOlderOne) {
    fill(oldLogName, 3);
    fill(logName, eightMebibytes + 1);
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"fresh");
    QVLog::stop();
    EXPECT_EQ(fileBytes(oldLogName).size(), eightMebibytes + 1);
    EXPECT_LT(fileBytes(logName).size(), 200U);
}

TEST_F(QVLogTest, ALogThatCannotBeOpenedIsAnError) {
    EXPECT_THROW(QVLog::start(L"no-such-folder\\kvx.log"), QVErrno);
    EXPECT_THROW(QVLog::start(L"no-such-folder/kvx.log"), QVErrno);
}

TEST_F(QVLogTest, NoInsertCanForgeARecord) {
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"name '%s'",
                           L"a\r\n2026-01-01 00:00:00.000+00:00 [1] E forged: x\nb\rc\x0B\x1B[2J\x85"
                           L"d\u2028e");
    QVLog::stop();
    const std::string text = fileBytes(logName);
    EXPECT_NE(
        text.find(
            "name 'a\r\n    2026-01-01 00:00:00.000+00:00 [1] E forged: x\r\n    b\r\n    c\r\n    \\x1B[2J\r\n    "
            "d\r\n    e'\r\n"),
        std::string::npos)
        << text;
}

TEST_F(QVLogTest, TextIsUtf8) {
    QVLog::start(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"%s", L"\u00E9\u4E2D");
    QVLog::stop();
    EXPECT_NE(fileBytes(logName).find("\xC3\xA9\xE4\xB8\xAD\r\n"), std::string::npos);
}

TEST_F(QVLogTest, LevelsHaveTheirMasks) {
    const std::uint32_t masks[] = {QVLogData::LEVEL_S.m_mask, QVLogData::LEVEL_E.m_mask,
                                   QVLogData::LEVEL_W.m_mask, QVLogData::LEVEL_I.m_mask,
                                   QVLogData::LEVEL_T.m_mask, QVLogData::LEVEL_D.m_mask,
                                   QVLogData::LEVEL_L.m_mask, QVLogData::LEVEL_C.m_mask,
                                   QVLogData::LEVEL_F.m_mask, QVLogData::LEVEL_X.m_mask};
    for (unsigned i = 0; i < 10; ++i)
        EXPECT_EQ(masks[i], 1U << i);
    EXPECT_EQ(CString(QVLog::TAB), L"    ");
}

}  // namespace
