#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "runtime/host/host.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class ProcessTest : public DescribedMachine {
protected:
    ~ProcessTest() override { unsetenv("KVXINFO_MACHINE"); }

    /// Sends standard output of a process that ends soon into the file "out".
    static void redirect() {
        const int file = open("out", O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, STDOUT_FILENO);
        close(file);
    }
    static std::string output() { return fileBytes("out"); }

    TemporaryDirectory m_here;
};

using ProcessDeathTest = ProcessTest;

char program[] = "kvxinfo";
char argument[] = "\xC3\xA4\xFF";
char* arguments[] = {program, argument, nullptr};

}  // namespace

TEST_F(ProcessDeathTest, TakesArgumentsInUtf8) {
    EXPECT_EXIT(
        {
            host::Process process(2, arguments);
            const bool good = process.usable() && process.argumentCount() == 2 &&
                              std::wstring(process.arguments()[0]) == L"kvxinfo" &&
                              std::wstring(process.arguments()[1]) == L"\u00E4\uFFFD" &&
                              process.arguments()[2] == nullptr;
            std::_Exit(good ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ProcessDeathTest, NamesTheMistakesOfItsMachine) {
    std::ofstream("bad.txt") << "[system]\nserver = maybe\n";
    setenv("KVXINFO_MACHINE", "bad.txt", 1);
    EXPECT_EXIT(
        {
            const host::Process process(1, arguments);
            std::_Exit(process.usable() ? 0 : host::Process::unusableExitStatus);
        },
        testing::ExitedWithCode(host::Process::unusableExitStatus),
        "bad.txt:2: \"maybe\" is neither \"yes\" nor \"no\"");
}

TEST_F(ProcessDeathTest, AnEmptyNameMeansTheSample) {
    setenv("KVXINFO_MACHINE", "", 1);
    EXPECT_EXIT(
        {
            const host::Process process(1, arguments);
            std::_Exit(process.usable() && host::system().value.computerName == L"WS01" ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ProcessDeathTest, CompletesTheOutputAtTheEnd) {
    EXPECT_EXIT(
        {
            redirect();
            {
                const host::Process process(1, arguments);
                host::writeConsole(L"text\r\n");
            }
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(output(), "text\r\n");
}

TEST_F(ProcessDeathTest, CompletesTheOutputWhenTheProgramBreaks) {
    EXPECT_EXIT(
        {
            redirect();
            const host::Process process(1, arguments);
            std::FILE* report = std::fopen("report", "w");
            std::fputs("report", report);
            host::writeConsole(L"text");
            std::terminate();
        },
        testing::ExitedWithCode(host::Process::abortedExitStatus), "");
    EXPECT_EQ(output(), "text");
    EXPECT_EQ(std::filesystem::file_size("report"), 6U);
}

TEST_F(ProcessDeathTest, AClosedStreamLendsItsNumberToNoFile) {
    EXPECT_EXIT(
        {
            close(STDOUT_FILENO);
            const host::Process process(1, arguments);
            const int file = open("out", O_WRONLY | O_CREAT, 0600);
            host::writeConsole(L"text");
            std::_Exit(file > STDERR_FILENO && !host::flushConsole() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(output(), "");
}
