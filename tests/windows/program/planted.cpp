/// A library that somebody put where it does not belong. Whoever loads it leaves a file of its name in the
/// folder that the variable KVX_PLANTED names, and ends at once.

#include <windows.h>

#include <string>

namespace {

constexpr UINT planted = 77;

std::wstring nameOf(HMODULE module) {
    wchar_t path[MAX_PATH + 1] = L"";
    GetModuleFileNameW(module, path, MAX_PATH);
    const std::wstring whole(path);
    return whole.substr(whole.find_last_of(L"\\/") + 1);
}

std::wstring folder() {
    wchar_t value[MAX_PATH + 1] = L"";
    GetEnvironmentVariableW(L"KVX_PLANTED", value, MAX_PATH);
    return value;
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    const std::wstring mark = folder() + L"\\" + nameOf(module);
    CloseHandle(
        CreateFileW(mark.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    TerminateProcess(GetCurrentProcess(), planted);
    return TRUE;
}
