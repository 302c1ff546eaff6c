#include <fstream>

#include "runtime/host/host.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class LogFile : public DescribedMachine {
protected:
    TemporaryDirectory m_here;
};

}  // namespace

TEST_F(LogFile, GrowsAndIsWrittenAtOnce) {
    std::ofstream("a.log") << "old\n";
    auto file = host::openForAppending(L"a.log", 100, L"a.old.log");
    ASSERT_TRUE(file.found());
    EXPECT_TRUE(file.value->append("new"));
    EXPECT_EQ(fileBytes("a.log"), "old\nnew");
    EXPECT_TRUE(file.value->append(""));
    EXPECT_FALSE(std::filesystem::exists("a.old.log"));
}

TEST_F(LogFile, IsMade) {
    auto file = host::openForAppending(L"a.log", 0, L"a.old.log");
    ASSERT_TRUE(file.found());
    EXPECT_TRUE(std::filesystem::exists("a.log"));
}

TEST_F(LogFile, IsRotatedAboveTheLimitOnly) {
    std::ofstream("a.log") << "1234\n";
    std::ofstream("a.old.log") << "older";
    ASSERT_TRUE(host::openForAppending(L"a.log", 5, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "1234\n");
    ASSERT_TRUE(host::openForAppending(L"a.log", 4, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "");
    EXPECT_EQ(fileBytes("a.old.log"), "1234\n");
}

TEST_F(LogFile, GrowsOnWhenItCannotBeRotated) {
    std::ofstream("a.log") << "1234\n";
    std::filesystem::create_directory("a.old.log");
    auto file = host::openForAppending(L"a.log", 4, L"a.old.log");
    ASSERT_TRUE(file.found());
    EXPECT_TRUE(file.value->append("6"));
    EXPECT_EQ(fileBytes("a.log"), "1234\n6");
}

TEST_F(LogFile, FinishesTheLineThatAnEarlierRunCouldNot) {
    std::ofstream("a.log") << "one\r\ntw";
    ASSERT_TRUE(host::openForAppending(L"a.log", 100, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "one\r\ntw\r\n");
    ASSERT_TRUE(host::openForAppending(L"a.log", 100, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "one\r\ntw\r\n");
    std::ofstream("a.log") << "one\r";
    auto file = host::openForAppending(L"a.log", 100, L"a.old.log");
    EXPECT_TRUE(file.value->append("two"));
    EXPECT_EQ(fileBytes("a.log"), "one\r\r\ntwo");
}

TEST_F(LogFile, NothingIsFinishedInAnEmptyOrARenamedFile) {
    std::ofstream("a.log") << "";
    ASSERT_TRUE(host::openForAppending(L"a.log", 4, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "");
    std::ofstream("a.log") << "12345";
    ASSERT_TRUE(host::openForAppending(L"a.log", 4, L"a.old.log").found());
    EXPECT_EQ(fileBytes("a.log"), "");
    EXPECT_EQ(fileBytes("a.old.log"), "12345");
}

TEST_F(LogFile, TellsWhyItCannotBeOpened) {
    std::filesystem::create_directory("d.log");
    EXPECT_EQ(host::openForAppending(L"d.log", 4, L"x").status, host::Status::refused);
    EXPECT_EQ(host::openForAppending(L"d.log", 4, L"x").failure.code, 5U);
    EXPECT_EQ(host::openForAppending(L"none\\a.log", 4, L"x").status, host::Status::failed);
    EXPECT_EQ(host::openForAppending(L"none\\a.log", 4, L"x").failure.code, 3U);
    EXPECT_EQ(host::openForAppending(L"C:\\a.log", 4, L"x").status, host::Status::refused);
    EXPECT_EQ(host::openForAppending(std::wstring(300, L'a'), 4, L"x").failure.code, 206U);
}

TEST_F(LogFile, TellsThatItCouldNotBeWritten) {
    std::filesystem::create_symlink("/dev/full", "a.log");
    auto file = host::openForAppending(L"a.log", 4, L"x");
    ASSERT_TRUE(file.found());
    EXPECT_FALSE(file.value->append("text"));
}
