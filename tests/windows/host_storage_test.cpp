/// Volumes and services of the machine on which the tests run.

#include <gtest/gtest.h>

#include <algorithm>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "runtime/host/windows/image_path.h"

namespace {

using host::Status;
using host::windows::imagePathFrom;

TEST(HostStorage, ThereIsADriveC) {
    const auto answer = host::volumes();
    ASSERT_TRUE(answer.found());
    const auto c = std::find_if(answer.value.begin(), answer.value.end(),
                                [](const host::VolumeFacts& volume) { return volume.letter == L'C'; });
    ASSERT_NE(c, answer.value.end());
    EXPECT_TRUE(c->device.starts_with(L"\\\\?\\Volume{"));
    EXPECT_TRUE(c->device.ends_with(L"\\"));
    EXPECT_EQ(c->type, host::DriveType::fixed);
    EXPECT_TRUE(c->fileSystem.found() && !c->fileSystem.value.empty());
    EXPECT_TRUE(c->label.found());
    ASSERT_TRUE(c->sizeBytes.found() && c->freeBytes.found());
    EXPECT_GT(c->sizeBytes.value, 0U);
    EXPECT_LE(c->freeBytes.value, c->sizeBytes.value);
}

TEST(HostStorage, LettersComeFirstAndInTheirOrder) {
    const auto answer = host::volumes();
    ASSERT_TRUE(answer.found());
    wchar_t last = L'\0';
    bool lettersOver = false;
    for (const host::VolumeFacts& volume : answer.value) {
        if (!volume.letter) {
            lettersOver = true;
            continue;
        }
        EXPECT_FALSE(lettersOver);
        EXPECT_LT(last, *volume.letter);
        last = *volume.letter;
    }
}

TEST(HostStorage, AServiceThatIsNotInstalledIsMissing) {
    EXPECT_EQ(host::service(L"KvxTestNoSuchService").status, Status::missing);
}

TEST(HostStorage, AServiceHasAStateAndAnImage) {
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

struct ImagePath {
    const wchar_t* configured;
    const wchar_t* path;
};

TEST(HostStorage, ImagePathsBecomeAbsolute) {
    const ImagePath cases[] = {
        {L"", L"C:\\Windows\\system32\\drivers\\filter.sys"},
        {L"   ", L"C:\\Windows\\system32\\drivers\\filter.sys"},
        {L"\\SystemRoot\\system32\\drivers\\a.sys", L"C:\\Windows\\system32\\drivers\\a.sys"},
        {L"\\systemroot\\System32\\a.sys", L"C:\\Windows\\System32\\a.sys"},
        {L"%SystemRoot%\\a.sys", L"C:\\Windows\\a.sys"},
        {L"SystemRoot\\a.sys", L"C:\\Windows\\a.sys"},
        {L"system32\\drivers\\a.sys", L"C:\\Windows\\system32\\drivers\\a.sys"},
        {L"\\??\\D:\\x\\a.sys", L"D:\\x\\a.sys"},
        {L"\\??\\UNC\\server\\share\\a.sys", L"\\\\server\\share\\a.sys"},
        {L"\\DosDevices\\D:\\x\\a.sys", L"D:\\x\\a.sys"},
        {L"\\global??\\UNC\\server\\share\\a.sys", L"\\\\server\\share\\a.sys"},
        {L"\\??\\Volume{x}\\a.sys", L"\\\\?\\Volume{x}\\a.sys"},
        {L"\\Device\\HarddiskVolume1\\a.sys", L"\\\\?\\GLOBALROOT\\Device\\HarddiskVolume1\\a.sys"},
        {L"D:\\x\\a.sys", L"D:\\x\\a.sys"},
        {L"\"D:\\program files\\a.exe\" -k run", L"D:\\program files\\a.exe"},
        {L"\"D:\\program files\\a.exe", L"D:\\program files\\a.exe"},
        {L"D:\\program files\\a.exe -k run", L"D:\\program files\\a.exe"},
        {L"D:\\program files\\a.dat", L"D:\\program files\\a.dat"},
        {L"\\Windows\\a.sys", L"C:\\Windows\\a.sys"},
    };
    for (const ImagePath& each : cases) {
        EXPECT_EQ(imagePathFrom(each.configured, L"filter", L"C:\\Windows"), each.path) << each.configured;
    }
}

}  // namespace
