#include "runtime/host/windows/paths.h"

#include <gtest/gtest.h>

namespace {

using host::windows::withoutLimit;

TEST(HostPaths, AShortPathStaysAsItIs) {
    EXPECT_EQ(withoutLimit(L"C:\\a\\..\\b"), L"C:\\a\\..\\b");
    EXPECT_EQ(withoutLimit(L"a.txt"), L"a.txt");
}

TEST(HostPaths, ALongPathTakesTheFormWithoutLimit) {
    const std::wstring name(300, L'n');
    EXPECT_EQ(withoutLimit(L"C:\\a\\..\\" + name), L"\\\\?\\C:\\" + name);
    EXPECT_EQ(withoutLimit(L"C:/" + name), L"\\\\?\\C:\\" + name);
    EXPECT_EQ(withoutLimit(L"\\\\server\\share\\" + name), L"\\\\?\\UNC\\server\\share\\" + name);
    EXPECT_EQ(withoutLimit(L"\\\\?\\C:\\" + name), L"\\\\?\\C:\\" + name);
    EXPECT_EQ(withoutLimit(L"\\\\.\\C:\\" + name), L"\\\\.\\C:\\" + name);
}

TEST(HostPaths, ADirectoryLeavesRoomForAShortName) {
    const std::wstring longest = L"C:\\" + std::wstring(MAX_PATH - 12 - 1 - 3, L'n');
    EXPECT_EQ(withoutLimit(longest), longest);
    EXPECT_EQ(withoutLimit(longest + L"n"), L"\\\\?\\" + longest + L"n");
}

TEST(HostPaths, FullPathsAreResolved) {
    EXPECT_EQ(host::windows::fullPath(L"C:\\a\\.\\..\\b").text, L"C:\\b");
    EXPECT_NE(host::windows::fullPath(L"").code, static_cast<DWORD>(ERROR_SUCCESS));
}

TEST(HostPaths, TheSystemHasADirectory) {
    wchar_t expected[MAX_PATH] = L"";
    ASSERT_NE(GetSystemWindowsDirectoryW(expected, MAX_PATH), 0U);
    EXPECT_EQ(host::windows::systemWindowsDirectory().text, expected);
}

}  // namespace
