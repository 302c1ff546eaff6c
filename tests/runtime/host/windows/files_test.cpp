#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "tests/files.h"

namespace {

using host::FileKind;
using host::Status;

/// A folder of its own, and names in it.
class HostFiles : public testing::Test {
protected:
    std::wstring path(const wchar_t* name) const { return (m_here.path() / name).wstring(); }
    std::wstring folder() const { return m_here.path().wstring(); }

    TemporaryDirectory m_here;
};

TEST_F(HostFiles, TellsFilesFromDirectoriesAndFromNothing) {
    makeFile("a.txt", "x");
    EXPECT_EQ(host::fileKind(path(L"a.txt")).value, FileKind::file);
    EXPECT_EQ(host::fileKind(folder()).value, FileKind::directory);
    EXPECT_EQ(host::fileKind(L"C:\\").value, FileKind::directory);
    EXPECT_EQ(host::fileKind(path(L"b.txt")).status, Status::missing);
    EXPECT_EQ(host::fileKind(path(L"none\\b.txt")).status, Status::missing);
    EXPECT_EQ(host::fileKind(path(L"a.txt\\below")).status, Status::missing);
}

TEST_F(HostFiles, ASeparatorAtTheEndMakesNoDifference) {
    makeFile("a.txt", "x");
    ASSERT_TRUE(host::fileKind(path(L"a.txt\\")).found());
    EXPECT_EQ(host::fileKind(path(L"a.txt\\")).value, FileKind::file);
    EXPECT_EQ(host::fileKind(folder() + L"\\").value, FileKind::directory);
    EXPECT_EQ(host::fileKind(folder() + L"/").value, FileKind::directory);
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
    makeFile("a.txt", std::string(70000, 'x'));
    const auto whole = host::fileContents(path(L"a.txt"), 70000);
    ASSERT_TRUE(whole.found());
    EXPECT_EQ(whole.value, std::string(70000, 'x'));

    const auto tooLarge = host::fileContents(path(L"a.txt"), 69999);
    EXPECT_EQ(tooLarge.status, Status::failed);
    EXPECT_EQ(tooLarge.failure.text, L"it is larger than 69999 bytes");
    EXPECT_EQ(host::fileContents(path(L"b.txt"), 10).status, Status::missing);
    EXPECT_EQ(host::fileContents(folder(), 10).status, Status::failed);
    EXPECT_EQ(host::fileContents(folder(), 10).failure.text, L"it is a directory");
}

}  // namespace
