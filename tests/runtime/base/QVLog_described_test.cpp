#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <iterator>
#include <string>
#include <string_view>

#include "runtime/base/QVLog.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

constexpr const char* logName = "kvx.log";

const QVLogData* const levels[] = {
    &QVLogData::LEVEL_S, &QVLogData::LEVEL_E, &QVLogData::LEVEL_W, &QVLogData::LEVEL_I, &QVLogData::LEVEL_T,
    &QVLogData::LEVEL_D, &QVLogData::LEVEL_L, &QVLogData::LEVEL_C, &QVLogData::LEVEL_F, &QVLogData::LEVEL_X};
constexpr std::string_view letters = "SEWITDLCFX";

/// The bytes of the log of a machine whose clock and log level are known.
class QVLogRecord : public DescribedMachine {
protected:
    ~QVLogRecord() override { QVLog::stop(); }

    /// Starts the log of a machine whose clock stands still; `setting` is its log level in hexadecimal.
    static void startAt(const std::string& now, const std::string& setting) {
        describe(
            "[system]\nnow = " + now +
            "\n[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient\\kvxinfo]\n"
            "\"LogLevel\"=dword:" +
            setting + "\n");
        QVLog::start(CString(L"kvx.log"));
    }

    static void writeAtEachLevel() {
        for (const QVLogData* level : levels)
            QVLog::mf_writeMessage(*level, L"test", L"text");
    }

    static std::string contents() { return fileBytes(logName); }

    static std::string process() { return "[" + std::to_string(getpid()) + "]"; }

    TemporaryDirectory m_here;
};

TEST_F(QVLogRecord, TellsTheTimeWestOfGreenwich) {
    startAt("2026-01-02 03:04:05.007 -03:30", "2");
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"text");
    EXPECT_EQ(contents(), "2026-01-02 03:04:05.007-03:30 " + process() + " E test: text\r\n");
}

TEST_F(QVLogRecord, TellsTheTimeLessThanAnHourWestOfGreenwich) {
    startAt("2026-01-02 03:04:05.007 -00:30", "2");
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"text");
    EXPECT_EQ(contents(), "2026-01-02 03:04:05.007-00:30 " + process() + " E test: text\r\n");
}

TEST_F(QVLogRecord, TellsTheTimeEastOfGreenwich) {
    startAt("2026-12-31 23:59:58.120 +05:45", "2");
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"text");
    EXPECT_EQ(contents(), "2026-12-31 23:59:58.120+05:45 " + process() + " E test: text\r\n");
}

TEST_F(QVLogRecord, EachLevelHasItsLetter) {
    startAt("2026-01-02 03:04:05.007 +00:00", "3ff");
    writeAtEachLevel();
    std::string expected;
    for (const char letter : letters) {
        expected += "2026-01-02 03:04:05.007+00:00 " + process() + " " + letter + " test: text\r\n";
    }
    EXPECT_EQ(contents(), expected);
}

TEST_F(QVLogRecord, EachBitOfTheSettingEnablesOneLevel) {
    const char* const settings[] = {"1", "2", "4", "8", "10", "20", "40", "80", "100", "200"};
    std::string expected;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        startAt("2026-01-02 03:04:05.007 +00:00", settings[i]);
        writeAtEachLevel();
        QVLog::stop();
        expected += "2026-01-02 03:04:05.007+00:00 " + process() + " " + letters[i] + " test: text\r\n";
    }
    EXPECT_EQ(contents(), expected);
}

/// Files of this process cannot grow beyond a size as long as it lives.
class SmallFiles {
public:
    explicit SmallFiles(rlim_t most) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{most, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallFiles() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;

private:
    void (*m_signal)(int);
    rlimit m_before{};
};

TEST_F(QVLogRecord, ThatCouldNotBeFinishedDoesNotSpoilTheNext) {
    startAt("2026-01-02 03:04:05.007 +00:00", "2");
    const std::string head = "2026-01-02 03:04:05.007+00:00 " + process() + " E test: ";
    {
        const SmallFiles most(head.size() + 3);
        QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"one is lost");
        QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"two as well");
    }
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"three");
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"four");
    EXPECT_EQ(contents(), head + "one\r\n" + head + "three\r\n" + head + "four\r\n");
}

TEST_F(QVLogRecord, OfANewRunIsNotLedByAnEarlierFailure) {
    startAt("2026-01-02 03:04:05.007 +00:00", "2");
    {
        const SmallFiles most(0);
        QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"lost");
    }
    QVLog::stop();
    startAt("2026-01-02 03:04:05.007 +00:00", "2");
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"new");
    EXPECT_EQ(contents(), "2026-01-02 03:04:05.007+00:00 " + process() + " E test: new\r\n");
}

}  // namespace
