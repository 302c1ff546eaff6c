#include "runtime/host/description/environment.h"

#include <gtest/gtest.h>

namespace {

description::Machine machine() {
    description::Machine machine;
    machine.system.windowsDirectory = L"D:\\WINNT";
    machine.system.facts.computerName = L"WS01";
    machine.system.environment[L"data"] = L"E:\\Data";
    return machine;
}

std::wstring expanded(const wchar_t* text) {
    return description::expanded(machine(), text);
}

TEST(Environment, DescribedVariablesAndThoseOfEveryWindows) {
    EXPECT_EQ(expanded(L"%Data%\\x"), L"E:\\Data\\x");
    EXPECT_EQ(expanded(L"%SystemRoot%|%windir%|%SYSTEMDRIVE%"), L"D:\\WINNT|D:\\WINNT|D:");
    EXPECT_EQ(expanded(L"%ProgramFiles%|%ProgramW6432%"), L"D:\\Program Files|D:\\Program Files");
    EXPECT_EQ(expanded(L"%ProgramFiles(x86)%"), L"D:\\Program Files (x86)");
    EXPECT_EQ(expanded(L"%CommonProgramFiles%"), L"D:\\Program Files\\Common Files");
    EXPECT_EQ(expanded(L"%ProgramData%|%ALLUSERSPROFILE%"), L"D:\\ProgramData|D:\\ProgramData");
    EXPECT_EQ(expanded(L"%PUBLIC%|%COMPUTERNAME%"), L"D:\\Users\\Public|WS01");
}

TEST(Environment, ADescribedVariableComesFirst) {
    description::Machine other = machine();
    other.system.environment[L"windir"] = L"C:\\Other";
    EXPECT_EQ(description::expanded(other, L"%WinDir%"), L"C:\\Other");
}

TEST(Environment, WhatIsNoVariableStays) {
    EXPECT_EQ(expanded(L"%Nothing%"), L"%Nothing%");
    EXPECT_EQ(expanded(L"100 %"), L"100 %");
    EXPECT_EQ(expanded(L"50% of %Data%"), L"50% of E:\\Data");
    EXPECT_EQ(expanded(L"%%"), L"%%");
    EXPECT_EQ(expanded(L""), L"");
}

}  // namespace
