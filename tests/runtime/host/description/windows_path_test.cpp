#include "runtime/host/description/windows_path.h"

#include <gtest/gtest.h>

namespace {

std::wstring full(std::wstring_view path) {
    return description::fullPath(path, L"C:\\Users\\alice");
}

}  // namespace

TEST(FullPath, LeavesAFullPathAsItIs) {
    EXPECT_EQ(full(L"C:\\a\\b.txt"), L"C:\\a\\b.txt");
    EXPECT_EQ(full(L"C:\\"), L"C:\\");
    EXPECT_EQ(full(L"\\\\server\\share\\a"), L"\\\\server\\share\\a");
}

TEST(FullPath, ResolvesDots) {
    EXPECT_EQ(full(L"C:\\a\\.\\b"), L"C:\\a\\b");
    EXPECT_EQ(full(L"C:\\a\\..\\b"), L"C:\\b");
    EXPECT_EQ(full(L"C:\\a\\b\\.."), L"C:\\a");
    EXPECT_EQ(full(L"C:\\a\\."), L"C:\\a");
    EXPECT_EQ(full(L"C:\\HSM\\..\\PELINV\\X.SYS2"), L"C:\\PELINV\\X.SYS2");
}

TEST(FullPath, NeverClimbsAboveTheRoot) {
    EXPECT_EQ(full(L"C:\\..\\..\\a"), L"C:\\a");
    EXPECT_EQ(full(L"C:\\a\\..\\.."), L"C:\\");
    EXPECT_EQ(full(L"..\\..\\..\\..\\x"), L"C:\\x");
    EXPECT_EQ(full(L"\\\\server\\share\\..\\..\\a"), L"\\\\server\\share\\a");
}

TEST(FullPath, KeepsABackslashAtTheEnd) {
    EXPECT_EQ(full(L"C:\\a\\"), L"C:\\a\\");
    EXPECT_EQ(full(L"C:\\a\\b\\..\\"), L"C:\\a\\");
    EXPECT_EQ(full(L"C:\\a\\.\\"), L"C:\\a\\");
}

TEST(FullPath, CountsRelativePathsFromTheCurrentDirectory) {
    EXPECT_EQ(full(L"b.txt"), L"C:\\Users\\alice\\b.txt");
    EXPECT_EQ(full(L".\\b"), L"C:\\Users\\alice\\b");
    EXPECT_EQ(full(L"..\\bob"), L"C:\\Users\\bob");
    EXPECT_EQ(full(L"."), L"C:\\Users\\alice");
    EXPECT_EQ(full(L".."), L"C:\\Users");
    EXPECT_EQ(description::fullPath(L"x", L"C:\\"), L"C:\\x");
    EXPECT_EQ(description::fullPath(L"x", L"\\\\server\\share\\d"), L"\\\\server\\share\\d\\x");
}

TEST(FullPath, KnowsDrivesAndRoots) {
    EXPECT_EQ(full(L"\\a"), L"C:\\a");
    EXPECT_EQ(full(L"\\"), L"C:\\");
    EXPECT_EQ(full(L"C:a"), L"C:\\Users\\alice\\a");
    EXPECT_EQ(full(L"c:a"), L"c:\\Users\\alice\\a");
    EXPECT_EQ(full(L"D:a"), L"D:\\a");
    EXPECT_EQ(full(L"D:"), L"D:\\");
    EXPECT_EQ(full(L"C:"), L"C:\\Users\\alice");
}

TEST(FullPath, TakesSlashesForBackslashes) {
    EXPECT_EQ(full(L"C:/a/../b/"), L"C:\\b\\");
    EXPECT_EQ(full(L"//server/share/a"), L"\\\\server\\share\\a");
}

TEST(FullPath, DropsRepeatedSeparatorsAndWhatTrailsTheLastName) {
    EXPECT_EQ(full(L"C:\\a\\\\b"), L"C:\\a\\b");
    EXPECT_EQ(full(L"C:\\a\\b. ."), L"C:\\a\\b");
    EXPECT_EQ(full(L"C:\\a \\b"), L"C:\\a \\b");
}

TEST(FullPath, ResolvesDotsOfPathsWithoutLimitToo) {
    EXPECT_EQ(full(L"\\\\?\\C:\\a\\..\\b"), L"\\\\?\\C:\\b");
    EXPECT_EQ(full(L"\\\\?\\C:\\a\\.\\b"), L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(full(L"\\\\?\\C:\\a/b"), L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(full(L"\\\\?\\C:\\a\\b. ."), L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(full(L"\\\\?\\C:\\a\\b\\..\\"), L"\\\\?\\C:\\a\\");
    EXPECT_EQ(full(L"\\\\?\\C:"), L"\\\\?\\C:");
    EXPECT_EQ(full(L"\\\\?\\C:\\"), L"\\\\?\\C:\\");
    EXPECT_EQ(full(L"\\\\.\\C:\\a\\..\\b"), L"\\\\.\\C:\\b");
    EXPECT_EQ(full(L"//?/C:/a/../b"), L"\\\\?\\C:\\b");
}

TEST(FullPath, BelowADeviceRootEvenTheDriveCanBeLeft) {
    EXPECT_EQ(full(L"\\\\?\\C:\\..\\..\\a"), L"\\\\?\\a");
    EXPECT_EQ(full(L"\\\\?\\C:\\.."), L"\\\\?\\");
    EXPECT_EQ(full(L"\\\\?\\UNC\\s\\d\\a\\..\\..\\b"), L"\\\\?\\UNC\\s\\b");
}

TEST(PathKey, FoldsCaseAndDropsTheLastBackslash) {
    EXPECT_EQ(description::pathKey(L"C:\\Data\\"), L"c:\\data");
    EXPECT_EQ(description::pathKey(L"C:\\"), L"c:");
    EXPECT_EQ(description::pathKey(L"C:\\\u00C4\u0416\u03A9"), L"c:\\\u00E4\u0436\u03C9");
    EXPECT_EQ(description::pathKey(L"\\\\?\\C:\\Data"), L"c:\\data");
    EXPECT_EQ(description::pathKey(L"\\\\?\\C:\\"), L"c:");
    EXPECT_EQ(description::pathKey(L"\\\\.\\C:\\Data"), L"c:\\data");
    EXPECT_EQ(description::pathKey(L"\\\\.\\C:"), L"\\\\.\\c:");
    EXPECT_EQ(description::pathKey(L"\\\\?\\UNC\\Server\\share"), L"\\\\server\\share");
}

TEST(ParentKey, EndsAtTheRoot) {
    EXPECT_EQ(description::parentKey(L"c:\\a\\b"), L"c:\\a");
    EXPECT_EQ(description::parentKey(L"c:\\a"), L"c:");
    EXPECT_EQ(description::parentKey(L"c:"), L"");
    EXPECT_EQ(description::parentKey(L"\\\\server\\share\\a"), L"\\\\server\\share");
    EXPECT_EQ(description::parentKey(L"\\\\server\\share"), L"");
}

TEST(IsDescribedPath, TellsPathsOfTheMachineFromFilesHere) {
    EXPECT_TRUE(description::isDescribedPath(L"C:\\a"));
    EXPECT_TRUE(description::isDescribedPath(L"c:a"));
    EXPECT_TRUE(description::isDescribedPath(L"\\a"));
    EXPECT_TRUE(description::isDescribedPath(L"/a"));
    EXPECT_FALSE(description::isDescribedPath(L"kvxinfo.log"));
    EXPECT_FALSE(description::isDescribedPath(L".\\a"));
    EXPECT_FALSE(description::isDescribedPath(L""));
}

TEST(FullPath, DirectoriesOnTheWayLoseOnePeriodAtTheirEnd) {
    EXPECT_EQ(description::fullPath(L"C:\\a.\\b.\\c", L"C:\\"), L"C:\\a\\b\\c");
    EXPECT_EQ(description::fullPath(L"C:\\a..\\b", L"C:\\"), L"C:\\a.\\b");
    EXPECT_EQ(description::fullPath(L"C:\\...\\b", L"C:\\"), L"C:\\...\\b");
}
