/// Console output into a console and into pipes.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "runtime/host/windows/console_output.h"
#include "runtime/host/windows/handle.h"

namespace {

using host::windows::ConsoleOutput;
using host::windows::FileHandle;

constexpr UINT unitedStates = 437;
constexpr UINT westernEuropean = 1252;

/// Gives this process a console as long as it lives: its own or, where it has none, the invisible one of a
/// command interpreter that waits.
class Console {
public:
    Console() {
        m_codePage = GetConsoleOutputCP();
        if (m_codePage == 0) borrow();
    }
    ~Console() {
        if (!m_lender) {
            SetConsoleOutputCP(m_codePage);
            return;
        }
        FreeConsole();
        for (std::size_t i = 0; i < streams.size(); ++i)
            SetStdHandle(streams[i], m_standard[i]);
        TerminateProcess(m_lender.get(), 0);
        WaitForSingleObject(m_lender.get(), INFINITE);
    }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    bool usable() const { return m_usable; }

private:
    static constexpr std::array<DWORD, 3> streams = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    using ProcessHandle = host::windows::Owner<host::windows::NullableTraits<HANDLE, CloseHandle>>;

    void borrow() {
        for (std::size_t i = 0; i < streams.size(); ++i)
            m_standard[i] = GetStdHandle(streams[i]);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        std::wstring command = L"cmd.exe /k";
        m_usable = false;
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                            nullptr, &start, &process)) {
            return;
        }
        m_lender = ProcessHandle(process.hProcess);
        CloseHandle(process.hThread);
        FreeConsole();  // Wine counts the streams that it got from a shell as one
        constexpr int tries = 200;
        for (int i = 0; i < tries && !m_usable; ++i) {
            m_usable = AttachConsole(process.dwProcessId) != 0;
            if (!m_usable) Sleep(20);  // the other process has not started yet
        }
    }

    UINT m_codePage;
    bool m_usable = true;
    std::array<HANDLE, 3> m_standard{};
    ProcessHandle m_lender;
};

/// A screen of its own in the console.
class HostTerminal : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_console.usable()) << "no console can be had";
        m_screen = FileHandle(CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE,
                                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                        CONSOLE_TEXTMODE_BUFFER, nullptr));
        ASSERT_TRUE(m_screen);
        CONSOLE_SCREEN_BUFFER_INFO screen{};
        ASSERT_TRUE(GetConsoleScreenBufferInfo(m_screen.get(), &screen));
        m_width = static_cast<DWORD>(screen.dwSize.X);
    }

    /// What stands in a line of the screen, without the blanks at its end.
    std::wstring line(SHORT number) const {
        std::wstring text(m_width, L'?');
        DWORD read = 0;
        EXPECT_TRUE(ReadConsoleOutputCharacterW(m_screen.get(), text.data(), m_width, {0, number}, &read));
        text.resize(read);
        return text.substr(0, text.find_last_not_of(L' ') + 1);
    }

    Console m_console;
    FileHandle m_screen;
    DWORD m_width = 0;
};

TEST_F(HostTerminal, ShowsCharactersThatNoCodePageHas) {
    const auto output = std::make_unique<ConsoleOutput>(m_screen.get(), unitedStates);
    EXPECT_TRUE(output->write(L"caf\u00e9 \u20ac \u0416\r\nnext"));
    EXPECT_EQ(line(0), L"caf\u00e9 \u20ac \u0416");
    EXPECT_EQ(line(1), L"next");
}

TEST_F(HostTerminal, ShowsTextAtOnceAndNotAgain) {
    const auto output = std::make_unique<ConsoleOutput>(m_screen.get(), CP_UTF8);
    EXPECT_TRUE(output->write(L"at "));
    EXPECT_EQ(line(0), L"at");
    EXPECT_TRUE(output->write(L"once"));
    EXPECT_TRUE(output->flush());
    EXPECT_EQ(line(0), L"at once");
    EXPECT_EQ(line(1), L"");
}

TEST_F(HostTerminal, ShowsMoreThanIsWrittenAtOnce) {
    const auto output = std::make_unique<ConsoleOutput>(m_screen.get(), CP_UTF8);
    std::wstring text;
    for (int i = 0; i < 3000; ++i)
        text += L"x\r\n";
    EXPECT_TRUE(output->write(text + L"end"));
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    ASSERT_TRUE(GetConsoleScreenBufferInfo(m_screen.get(), &screen));
    EXPECT_EQ(line(screen.dwCursorPosition.Y), L"end");
    EXPECT_EQ(line(static_cast<SHORT>(screen.dwCursorPosition.Y - 1)), L"x");
}

TEST_F(HostTerminal, DecidesTheCodePageOfReaders) {
    for (const UINT codePage : {unitedStates, westernEuropean}) {
        ASSERT_TRUE(SetConsoleOutputCP(codePage));
        EXPECT_EQ(ConsoleOutput::readersCodePage(), codePage);
    }
}

TEST(HostPipe, GetsBytes) {
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    ASSERT_TRUE(CreatePipe(&reading, &writing, nullptr, 0));
    const FileHandle reader(reading);
    const FileHandle writer(writing);
    const auto output = std::make_unique<ConsoleOutput>(writer.get(), unitedStates);
    EXPECT_TRUE(output->write(L"caf\u00e9"));
    EXPECT_TRUE(output->flush());
    std::string bytes(100, '?');
    DWORD read = 0;
    ASSERT_TRUE(ReadFile(reader.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
    EXPECT_EQ(bytes.substr(0, read), "caf\x82");
}

TEST(HostPipe, WhoseReaderHasLeftTakesNothing) {
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    ASSERT_TRUE(CreatePipe(&reading, &writing, nullptr, 0));
    FileHandle reader(reading);
    const FileHandle writer(writing);
    const auto output = std::make_unique<ConsoleOutput>(writer.get(), CP_UTF8);
    EXPECT_TRUE(output->write(L"in time, but kept back"));
    reader = FileHandle();
    EXPECT_FALSE(output->flush());
    EXPECT_FALSE(output->write(L"more"));
}

/// Set in a process that was started without a console.
constexpr const wchar_t* detached = L"KVX_TEST_DETACHED";

/// The exit status of this test alone, in a process without a console.
DWORD statusWithoutConsole(const std::wstring& test) {
    std::wstring program(32768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    std::wstring command = L'"' + program + L"\" --gtest_brief=1 --gtest_filter=" + test;
    SetEnvironmentVariableW(detached, L"1");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const bool started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS,
                                        nullptr, nullptr, &start, &process) != 0;
    SetEnvironmentVariableW(detached, nullptr);
    if (!started) return GetLastError();
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = STILL_ACTIVE;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status;
}

TEST(HostPipe, HasTheCodePageOfTheSystemWithoutAConsole) {
    if (GetConsoleOutputCP() == 0) {
        EXPECT_EQ(ConsoleOutput::readersCodePage(), GetOEMCP());
    } else {
        ASSERT_EQ(GetEnvironmentVariableW(detached, nullptr, 0), 0U) << "there is a console all the same";
        EXPECT_EQ(statusWithoutConsole(L"HostPipe.HasTheCodePageOfTheSystemWithoutAConsole"), 0U);
    }
}

}  // namespace
