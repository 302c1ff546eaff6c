#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "tests/files.h"

namespace {

using host::Status;

/// A folder of its own, and names in it.
class HostLogFile : public testing::Test {
protected:
    std::wstring path(const wchar_t* name) const { return (m_here.path() / name).wstring(); }

    /// Appends through the host, as the log does.
    void append(const wchar_t* name, std::string_view bytes, std::uint64_t rotateAbove = 1000) const {
        const auto file = host::openForAppending(path(name), rotateAbove, path(L"kvx.old.log"));
        ASSERT_TRUE(file.found());
        ASSERT_TRUE(file.value->append(bytes));
    }
    std::string contents(const wchar_t* name) const { return fileBytes(m_here.path() / name); }

    TemporaryDirectory m_here;
};

TEST_F(HostLogFile, ALogGrowsOnUntilItIsTooLarge) {
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

TEST_F(HostLogFile, ALogFinishesTheLineThatAnEarlierRunCouldNot) {
    append(L"kvx.log", "");
    append(L"kvx.log", "one\r\ntw");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw");
    append(L"kvx.log", "three\r\n");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw\r\nthree\r\n");
    append(L"kvx.log", "four\r");
    append(L"kvx.log", "five\r\n");
    EXPECT_EQ(contents(L"kvx.log"), "one\r\ntw\r\nthree\r\nfour\r\r\nfive\r\n");
}

TEST_F(HostLogFile, ALogThatAnotherRunHasOpenIsRenamedAllTheSame) {
    append(L"kvx.log", "large\n");
    const auto earlier = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    ASSERT_TRUE(earlier.found());
    append(L"kvx.log", "new\n", 5);
    EXPECT_TRUE(earlier.value->append("late\n"));
    EXPECT_EQ(contents(L"kvx.log"), "new\n");
    EXPECT_EQ(contents(L"kvx.old.log"), "large\nlate\n");
}

TEST_F(HostLogFile, ALogCanBeReadWhileItIsOpenAndTwoRunsShareIt) {
    const auto first = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    const auto second = host::openForAppending(path(L"kvx.log"), 1000, path(L"kvx.old.log"));
    ASSERT_TRUE(first.found() && second.found());
    EXPECT_TRUE(first.value->append("a"));
    EXPECT_TRUE(second.value->append("b"));
    EXPECT_TRUE(first.value->append("c"));
    EXPECT_EQ(contents(L"kvx.log"), "abc");
}

TEST_F(HostLogFile, ALogThatCannotBeOpenedSaysWhy) {
    const auto inNothing = host::openForAppending(path(L"none\\kvx.log"), 10, path(L"old"));
    EXPECT_EQ(inNothing.status, Status::failed);
    EXPECT_EQ(inNothing.failure.code, static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    const auto directory = host::openForAppending(m_here.path().wstring(), 10, path(L"old"));
    EXPECT_EQ(directory.status, Status::refused);
    EXPECT_EQ(directory.failure.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

}  // namespace
