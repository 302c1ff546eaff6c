#include "runtime/base/QVPath.h"

#include <gtest/gtest.h>

namespace {

TEST(QVPath, AppendsAFileByOneBackslash) {
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\Prog", L"a.exe"), L"C:\\Prog\\a.exe");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\Prog\\", L"a.exe"), L"C:\\Prog\\a.exe");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\Prog\\", L"\\a.exe"), L"C:\\Prog\\a.exe");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\Prog", L""), L"C:\\Prog\\");
    EXPECT_EQ(QVPath::mf_appendFile(L"", L"a.exe"), L"a.exe");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\BA\\\\", L"a.dll"), L"C:\\BA\\a.dll");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:\\", L"a.dll"), L"C:\\a.dll");
    EXPECT_EQ(QVPath::mf_appendFile(L"C:/dir/", L"a.dll"), L"C:/dir\\a.dll");
    EXPECT_EQ(QVPath::mf_appendFile(L"\\\\server\\share", L"a.dll"), L"\\\\server\\share\\a.dll");
}

TEST(QVPath, AppendedDirectoryEndsWithABackslash) {
    EXPECT_EQ(QVPath::mf_appendDirectory(L"C:\\Windows", L"system32"), L"C:\\Windows\\system32\\");
    EXPECT_EQ(QVPath::mf_appendDirectory(L"C:\\", L"Windows\\"), L"C:\\Windows\\");
    EXPECT_EQ(QVPath::mf_appendDirectory(L"C:\\Windows", L""), L"C:\\Windows\\");
}

TEST(QVPath, KnowsAbsoluteNames) {
    for (const wchar_t* path : {L"C:\\", L"c:/x", L"C:\\Windows", L"\\\\server\\share", L"\\\\?\\C:\\x"}) {
        EXPECT_TRUE(QVPath::mf_isAbsolutePathName(path)) << CString(path).GetLength();
    }
    for (const wchar_t* path : {L"", L"C:", L"C:x", L"\\x", L".\\x", L"..\\x", L"x", L"1:\\x", L"CC:\\x"}) {
        EXPECT_FALSE(QVPath::mf_isAbsolutePathName(path)) << CString(path).GetLength();
    }
}

TEST(QVPath, ResolvesDots) {
    EXPECT_EQ(QVPath::mf_getAbsolutePath(L"C:\\Prog\\HSM\\..\\PELINV\\.\\x.sys2"),
              L"C:\\Prog\\PELINV\\x.sys2");
    EXPECT_EQ(QVPath::mf_getAbsolutePath(L"C:\\..\\..\\x"), L"C:\\x");
}

}  // namespace
