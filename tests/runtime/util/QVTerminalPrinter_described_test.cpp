#include "runtime/util/QVTerminalPrinter.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "runtime/base/QVLog.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

/// Leads standard output to a file as long as it lives.
class StandardOutput {
public:
    explicit StandardOutput(const char* file) : m_before(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        QVTerminalPrinter::flush();
        const int descriptor = open(file, O_WRONLY | O_CREAT, 0600);
        EXPECT_GE(descriptor, 0);
        dup2(descriptor, STDOUT_FILENO);
        close(descriptor);
    }
    ~StandardOutput() {
        QVTerminalPrinter::flush();
        dup2(m_before, STDOUT_FILENO);
        close(m_before);
    }
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

private:
    int m_before;
};

/// Prints to a device that takes nothing. 0 when the log has one record of it, which `complete` wrote.
int loseOutput() {
    const StandardOutput full("/dev/full");
    QVLog::start(L"lost.log");
    QVTerminalPrinter::mf_print(L"lost");
    QVTerminalPrinter::flush();
    if (!fileBytes("lost.log").empty()) return 1;
    QVTerminalPrinter::complete();
    QVLog::stop();
    const std::string record =
        "] E QVTerminalPrinter::complete: Console output could not be written; "
        "the rest of it is lost\r\n";
    const std::string log = fileBytes("lost.log");
    return log.find(record) + record.size() == log.size() ? 0 : 2;
}

TEST(QVTerminalPrinterTest, PrintsTextsExactlyAsGiven) {
    const TemporaryDirectory here;
    const StandardOutput file("out");
    QVTerminalPrinter::mf_print(L"");
    QVTerminalPrinter::mf_print(L"100 %s\n");
    QVTerminalPrinter::mf_print(L"\u00E9\u20AC\r\nend");
    QVTerminalPrinter::flush();
    EXPECT_EQ(fileBytes("out"), "100 %s\n\xC3\xA9\xE2\x82\xAC\r\nend");
}

TEST(QVTerminalPrinterTest, CompleteOutputIsNoRecord) {
    const TemporaryDirectory here;
    const StandardOutput file("out");
    QVLog::start(L"complete.log");
    QVTerminalPrinter::mf_print(L"all of it");
    QVTerminalPrinter::complete();
    QVLog::stop();
    EXPECT_EQ(fileBytes("out"), "all of it");
    EXPECT_EQ(fileBytes("complete.log"), "");
}

TEST(QVTerminalPrinterTest, LostOutputIsOneRecordAtTheEnd) {
    const TemporaryDirectory here;
    // In a process of its own: what was lost stays lost for the rest of a run.
    EXPECT_EXIT(std::_Exit(loseOutput()), testing::ExitedWithCode(0), "");
}

}  // namespace
