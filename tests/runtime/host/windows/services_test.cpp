#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"

namespace {

using host::Status;

TEST(HostServices, AServiceThatIsNotInstalledIsMissing) {
    EXPECT_EQ(host::service(L"KvxTestNoSuchService").status, Status::missing);
}

TEST(HostServices, AServiceHasAStateAndAnImage) {
    SC_HANDLE manager = OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CREATE_SERVICE);
    ASSERT_NE(manager, nullptr);
    SC_HANDLE staged = CreateServiceW(manager, L"KvxTestDriver", nullptr, SERVICE_ALL_ACCESS,
                                      SERVICE_KERNEL_DRIVER, SERVICE_DEMAND_START, SERVICE_ERROR_NORMAL,
                                      L"\\SystemRoot\\system32\\drivers\\kvxtest.sys", nullptr, nullptr,
                                      nullptr, nullptr, nullptr);
    ASSERT_NE(staged, nullptr);
    const auto answer = host::service(L"KvxTestDriver");
    DeleteService(staged);
    CloseServiceHandle(staged);
    CloseServiceHandle(manager);

    ASSERT_TRUE(answer.found());
    EXPECT_FALSE(answer.value.running);
    EXPECT_EQ(answer.value.state, L"stopped");
    wchar_t folder[MAX_PATH] = L"";
    ASSERT_NE(GetSystemWindowsDirectoryW(folder, MAX_PATH), 0U);
    EXPECT_EQ(answer.value.imagePath, std::wstring(folder) + L"\\system32\\drivers\\kvxtest.sys");
}

}  // namespace
