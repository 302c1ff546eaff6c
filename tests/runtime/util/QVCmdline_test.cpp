#include "runtime/util/QVCmdline.h"

#include <gtest/gtest.h>

namespace {

QVCmdline over(std::vector<std::wstring> words) {
    std::vector<wchar_t*> argv;
    for (std::wstring& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    return {static_cast<int>(words.size()), argv.data()};
}

TEST(QVCmdline, HoldsTheArgumentsWithoutTheProgram) {
    EXPECT_EQ(over({L"kvxinfo"}).mf_getSize(), 0);
    EXPECT_EQ(over({L"kvxinfo", L"all", L"save"}).mf_getSize(), 2);
    EXPECT_EQ(QVCmdline(0, nullptr).mf_getSize(), 0);
}

TEST(QVCmdline, FindsAnArgumentByItsExactName) {
    QVCmdline cmdline = over({L"kvxinfo", L"Save", L"save"});
    EXPECT_EQ(cmdline.mf_getArgument(L"SAVE", 1), 0);
    EXPECT_NE(cmdline.mf_getArgument(L"save", 0), 0);
    EXPECT_EQ(cmdline.mf_getSize(), 2);
    EXPECT_NE(cmdline.mf_getArgument(L"save", 1), 0);
    EXPECT_EQ(cmdline.mf_getSize(), 1);
    EXPECT_EQ(cmdline.mf_getArgument(L"save", 1), 0);
}

TEST(QVCmdline, TakesOutOneOccurrenceOnly) {
    QVCmdline cmdline = over({L"kvxinfo", L"save", L"all", L"save"});
    EXPECT_NE(cmdline.mf_getArgument(L"save", 1), 0);
    CString first;
    EXPECT_NE(cmdline.mf_getArgument(0, first, 0), 0);
    EXPECT_EQ(first, L"all");
    EXPECT_EQ(cmdline.mf_getSize(), 2);
}

TEST(QVCmdline, TakesArgumentsByIndex) {
    QVCmdline cmdline = over({L"kvxinfo", L"one", L"two"});
    CString argument;
    EXPECT_NE(cmdline.mf_getArgument(1, argument, 1), 0);
    EXPECT_EQ(argument, L"two");
    EXPECT_NE(cmdline.mf_getArgument(0, argument, 1), 0);
    EXPECT_EQ(argument, L"one");
    EXPECT_EQ(cmdline.mf_getArgument(0, argument, 1), 0);
    EXPECT_EQ(cmdline.mf_getArgument(-1, argument, 1), 0);
    EXPECT_EQ(argument, L"one");
}

}  // namespace
