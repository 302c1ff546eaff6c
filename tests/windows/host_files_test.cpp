/// The real file system, over files that the tests make themselves.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace {

using host::FileKind;
using host::Status;

class HostFiles : public testing::Test {
protected:
    void SetUp() override {
        wchar_t temporary[MAX_PATH + 1] = L"";
        ASSERT_NE(GetTempPathW(MAX_PATH, temporary), 0U);
        m_folder = std::wstring(temporary) + L"KvxTestFiles" + std::to_wstring(GetCurrentProcessId());
        ASSERT_TRUE(CreateDirectoryW(m_folder.c_str(), nullptr));
    }
    void TearDown() override {
        for (const wchar_t* name : {L"\\a.txt", L"\\kvx.log", L"\\kvx.old.log"}) {
            DeleteFileW((m_folder + name).c_str());
        }
        RemoveDirectoryW(m_folder.c_str());
    }

    std::wstring path(const wchar_t* name) const { return m_folder + L"\\" + name; }

    /// Appends through the host, as the log does.
    void append(const wchar_t* name, std::string_view bytes, std::uint64_t rotateAbove = 1000) const {
        const auto file = host::openForAppending(path(name), rotateAbove, path(L"kvx.old.log"));
        ASSERT_TRUE(file.found());
        ASSERT_TRUE(file.value->append(bytes));
    }
    std::string contents(const wchar_t* name) const { return host::fileContents(path(name), 100000).value; }

    std::wstring m_folder;
};

TEST_F(HostFiles, TellsFilesFromDirectoriesAndFromNothing) {
    append(L"a.txt", "x");
    EXPECT_EQ(host::fileKind(path(L"a.txt")).value, FileKind::file);
    EXPECT_EQ(host::fileKind(m_folder).value, FileKind::directory);
    EXPECT_EQ(host::fileKind(L"C:\\").value, FileKind::directory);
    EXPECT_EQ(host::fileKind(path(L"b.txt")).status, Status::missing);
    EXPECT_EQ(host::fileKind(path(L"none\\b.txt")).status, Status::missing);
    EXPECT_EQ(host::fileKind(path(L"a.txt\\below")).status, Status::missing);
}

TEST_F(HostFiles, ASeparatorAtTheEndMakesNoDifference) {
    append(L"a.txt", "x");
    ASSERT_TRUE(host::fileKind(path(L"a.txt\\")).found());
    EXPECT_EQ(host::fileKind(path(L"a.txt\\")).value, FileKind::file);
    EXPECT_EQ(host::fileKind(m_folder + L"\\").value, FileKind::directory);
    EXPECT_EQ(host::fileKind(m_folder + L"/").value, FileKind::directory);
    EXPECT_EQ(host::fileKind(path(L"none\\")).status, Status::missing);
}

TEST_F(HostFiles, ResolvesDots) {
    EXPECT_EQ(host::absolutePath(L"C:\\a\\.\\b\\..\\c.txt").value, L"C:\\a\\c.txt");
    EXPECT_EQ(host::absolutePath(L"C:\\..\\..\\x").value, L"C:\\x");
    EXPECT_EQ(host::absolutePath(L"C:/a/b/").value, L"C:\\a\\b\\");
    const std::wstring longName(3000, L'n');
    EXPECT_EQ(host::absolutePath(L"C:\\a\\..\\" + longName).value, L"C:\\" + longName);
}

TEST_F(HostFiles, ResolvesDotsOfPathsWithoutLimitToo) {
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\a\\..\\b").value, L"\\\\?\\C:\\b");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\a\\.\\b").value, L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\a/b").value, L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\a\\b. .").value, L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\a\\b\\..\\").value, L"\\\\?\\C:\\a\\");
    EXPECT_EQ(host::absolutePath(L"\\\\.\\C:\\a\\..\\b").value, L"\\\\.\\C:\\b");
}

TEST_F(HostFiles, BelowADeviceRootEvenTheDriveCanBeLeft) {
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\..\\..\\a").value, L"\\\\?\\a");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\C:\\..").value, L"\\\\?\\");
    EXPECT_EQ(host::absolutePath(L"\\\\?\\UNC\\s\\d\\a\\..\\..\\b").value, L"\\\\?\\UNC\\s\\b");
}

TEST_F(HostFiles, AnEmptyNameHasNoFullPath) {
    // A code that an earlier call has left is no reason.
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    const auto answer = host::absolutePath(L"");
    EXPECT_TRUE(answer.unanswered());
    EXPECT_EQ(answer.failure.code, static_cast<DWORD>(ERROR_INVALID_NAME));
}

TEST_F(HostFiles, ReadsAWholeFileUpToALimit) {
    append(L"a.txt", std::string(70000, 'x'));
    const auto whole = host::fileContents(path(L"a.txt"), 70000);
    ASSERT_TRUE(whole.found());
    EXPECT_EQ(whole.value, std::string(70000, 'x'));

    const auto tooLarge = host::fileContents(path(L"a.txt"), 69999);
    EXPECT_EQ(tooLarge.status, Status::failed);
    EXPECT_EQ(tooLarge.failure.text, L"it is larger than 69999 bytes");
    EXPECT_EQ(host::fileContents(path(L"b.txt"), 10).status, Status::missing);
    EXPECT_EQ(host::fileContents(m_folder, 10).status, Status::failed);
    EXPECT_EQ(host::fileContents(m_folder, 10).failure.text, L"it is a directory");
}

TEST_F(HostFiles, ALogGrowsOnUntilItIsTooLarge) {
    append(L"kvx.log", "first\n");
    append(L"kvx.log", "second\n");
    EXPECT_EQ(contents(L"kvx.log"), "first\nsecond\n");

    append(L"kvx.log", "third\n", 12);
    EXPECT_EQ(contents(L"kvx.log"), "third\n");
    EXPECT_EQ(contents(L"kvx.old.log"), "first\nsecond\n");

    append(L"kvx.log", "\n", 5);
    EXPECT_EQ(contents(L"kvx.old.log"), "third\n");
    append(L"kvx.log", "5", 1);
    EXPECT_EQ(contents(L"kvx.log"), "\n5");
}

TEST_F(HostFiles, ALogFinishesTheLineThatAnEarlierRunCouldNot) {
    append(L"kvx.log", "");
    append(L"kvx.log", "one\r\ntw");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw");
    append(L"kvx.log", "three\r\n");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw\r\nthree\r\n");
    append(L"kvx.log", "four\r");
    append(L"kvx.log", "five\r\n");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw\r\nthree\r\nfour\r\r\nfive\r\n");
}

TEST_F(HostFiles, ALogThatAnotherRunHasOpenIsRenamedAllTheSame) {
    append(L"kvx.log", "large\n");
    const auto earlier = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    ASSERT_TRUE(earlier.found());
    append(L"kvx.log", "new\n", 5);
    EXPECT_TRUE(earlier.value->append("late\n"));
    EXPECT_EQ(contents(L"kvx.log"), "new\n");
    EXPECT_EQ(contents(L"kvx.old.log"), "large\nlate\n");
}

TEST_F(HostFiles, ALogCanBeReadWhileItIsOpenAndTwoRunsShareIt) {
    const auto first = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    const auto second = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    ASSERT_TRUE(first.found() && second.found());
    EXPECT_TRUE(first.value->append("a"));
    EXPECT_TRUE(second.value->append("b"));
    EXPECT_TRUE(first.value->append("c"));
    EXPECT_EQ(contents(L"kvx.log"), "abc");
}

TEST_F(HostFiles, ALogThatCannotBeOpenedSaysWhy) {
    const auto inNothing = host::openForAppending(path(L"none\\kvx.log"), 10, path(L"old"));
    EXPECT_EQ(inNothing.status, Status::failed);
    EXPECT_EQ(inNothing.failure.code, static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    const auto directory = host::openForAppending(m_folder, 10, path(L"old"));
    EXPECT_EQ(directory.status, Status::refused);
    EXPECT_EQ(directory.failure.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

TEST_F(HostFiles, AnImageHasAVersionAndOtherFilesHaveNone) {
    const auto version = host::fileVersion(L"C:\\windows\\system32\\kernel32.dll");
    ASSERT_TRUE(version.found());
    EXPECT_GE(version.value.major, 5);
    EXPECT_EQ(host::fileVersion(path(L"none.sys")).status, Status::missing);
    append(L"a.txt", "no image at all");
    EXPECT_NE(host::fileVersion(path(L"a.txt")).status, Status::found);
}

}  // namespace
