#include "runtime/host/windows/image_path.h"

#include <gtest/gtest.h>

namespace {

using host::windows::imagePathFrom;

struct ImagePath {
    const wchar_t* configured;
    const wchar_t* path;
};

TEST(HostImagePath, ImagePathsBecomeAbsolute) {
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
