#include "runtime/host/description/file_lookup.h"

#include "runtime/host/description/state.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class FileLookup : public DescribedMachine {
protected:
    FileLookup() {
        describe(
            "[system]\ncurrent directory = C:\\Users\\alice\n"
            "[files]\nC:\\Users\\bob.txt\n! error 32 C:\\Locked\nC:\\Locked\\a.txt\n\\\\server\\share\\x\n"
            "[volumes]\nC: = fixed\nD: = optical error 21\n");
    }

    static description::LookedUp lookUp(const wchar_t* path) {
        return description::lookUp(description::machine(), path);
    }
};

TEST_F(FileLookup, FindsEntriesByAnyFormOfTheirPath) {
    EXPECT_EQ(lookUp(L"c:/USERS/bob.txt").key, L"c:\\users\\bob.txt");
    for (const wchar_t* path :
         {L"C:\\Users\\bob.txt", L"..\\bob.txt", L"\\Users\\.\\bob.txt", L"\\\\?\\C:\\Users\\bob.txt"})
        EXPECT_NE(lookUp(path).entry, nullptr) << path;
    EXPECT_EQ(lookUp(L"\\\\?\\C:\\Users\\.\\bob.txt").entry, nullptr);
    EXPECT_EQ(lookUp(L"C:\\Users\\carol.txt").entry, nullptr);
    EXPECT_FALSE(lookUp(L"C:\\Users\\carol.txt").cause.any);
}

TEST_F(FileLookup, ADriveHasARootDirectory) {
    ASSERT_NE(lookUp(L"D:\\").entry, nullptr);
    EXPECT_TRUE(lookUp(L"D:\\").entry->directory);
    EXPECT_EQ(lookUp(L"E:\\").entry, nullptr);
}

TEST_F(FileLookup, CausesComeFromThePathFromAboveItAndFromTheVolume) {
    EXPECT_EQ(lookUp(L"C:\\Locked").cause.code, 32U);
    EXPECT_EQ(lookUp(L"C:\\Locked\\a.txt").cause.code, 32U);
    EXPECT_EQ(lookUp(L"D:\\any.txt").cause.code, 21U);
    EXPECT_FALSE(lookUp(L"C:\\Users\\bob.txt").cause.any);
}

TEST_F(FileLookup, AShareOfWhichNothingIsDescribedCannotBeReached) {
    EXPECT_FALSE(lookUp(L"\\\\server\\share\\y").cause.any);
    EXPECT_EQ(lookUp(L"\\\\server\\other\\y").cause.code, 53U);
}

}  // namespace
