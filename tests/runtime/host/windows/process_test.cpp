#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace {

TEST(HostProcess, HasTheNumberThatTheSystemGaveIt) {
    EXPECT_EQ(host::processId(), GetCurrentProcessId());
}

TEST(HostProcess, TheProcessOwnsItsArguments) {
    wchar_t program[] = L"kvxinfo", keyword[] = L"version";
    wchar_t* arguments[] = {program, keyword, nullptr};
    const UINT modeBefore = SetErrorMode(0);
    const std::terminate_handler terminateBefore = std::get_terminate();
    {
        host::Process process(2, arguments);
        keyword[0] = L'X';
        EXPECT_TRUE(process.usable());
        ASSERT_EQ(process.argumentCount(), 2);
        EXPECT_STREQ(process.arguments()[0], L"kvxinfo");
        EXPECT_STREQ(process.arguments()[1], L"version");
        EXPECT_EQ(process.arguments()[2], nullptr);
        EXPECT_NE(SetErrorMode(SEM_FAILCRITICALERRORS) & SEM_FAILCRITICALERRORS, 0U);
    }
    std::set_terminate(terminateBefore);
    SetErrorMode(modeBefore);
}

}  // namespace
