#include "runtime/util/QVMain.h"

#include "runtime/base/QVLog.h"
#include "runtime/util/DomainSession.h"
#include "runtime/util/QVStorage.h"
#include "tests/files.h"
#include "tests/runtime/error_of.h"

namespace {

constexpr const char* logName = "kvxmaintest.log";

class QVMainTest : public testing::Test {
protected:
    QVMainTest() { stopAll(); }
    ~QVMainTest() override { stopAll(); }

    static void stopAll() {
        QVMain::mf_stopDomainController();
        QVMain::mf_stopStorage();
        QVMain::mf_stopLogging();
        QVMain::mf_deleteInstance();
    }

    static std::string logged() { return fileBytes(logName); }

    TemporaryDirectory m_here;
};

TEST_F(QVMainTest, StopsWhatNeverStarted) {
    EXPECT_NO_THROW(stopAll());
    EXPECT_NO_THROW(stopAll());
    EXPECT_EQ(QVStorage::mf_isInitialized(), 0);
    EXPECT_FALSE(DomainSession::isStarted());
}

TEST_F(QVMainTest, EachServiceIsStartedAndStoppedByItself) {
    QVMain::mf_createInstance(1);
    for (int round = 0; round < 2; ++round) {
        QVMain::mf_startStorage(0);
        EXPECT_NE(QVStorage::mf_isInitialized(), 0);
        EXPECT_FALSE(DomainSession::isStarted());
        QVMain::mf_startDomainController(0);
        EXPECT_TRUE(DomainSession::isStarted());
        QVMain::mf_stopStorage();
        EXPECT_EQ(QVStorage::mf_isInitialized(), 0);
        EXPECT_TRUE(DomainSession::isStarted());
        QVMain::mf_stopDomainController();
        EXPECT_FALSE(DomainSession::isStarted());
    }
}

TEST_F(QVMainTest, TheLogIsWrittenBetweenStartAndStopAndGoesOnAfterAnotherStart) {
    QVMain::mf_startLogging(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"first");
    QVMain::mf_stopLogging();
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"between");
    QVMain::mf_startLogging(CString(logName));
    QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"second");
    QVMain::mf_stopLogging();
    const std::string text = logged();
    const std::size_t first = text.find("] E test: first\r\n");
    ASSERT_NE(first, std::string::npos) << text;
    EXPECT_NE(text.find("] E test: second\r\n", first), std::string::npos) << text;
    EXPECT_EQ(text.find("between"), std::string::npos) << text;
}

TEST_F(QVMainTest, ALogThatCannotBeOpenedIsAnErrorAndNoLog) {
    EXPECT_NE(errorOf([] { QVMain::mf_startLogging(L"no-such-folder/kvx.log"); }), L"");
    EXPECT_NO_THROW(QVLog::mf_writeMessage(QVLogData::LEVEL_E, L"test", L"nowhere"));
    EXPECT_NO_THROW(QVMain::mf_stopLogging());
}

}  // namespace
