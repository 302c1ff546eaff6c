/// A stand-in for the system's service library, for the tests under Wine, whose service control manager
/// refuses nothing: services that KVX_SERVICE_CAUSES names ("name=5;other=1072") are answered with that error
/// code. All else is handed on to the system's own library, which stands beside this one as sechost0.dll; the
/// list of it is made by exports.py.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <bit>
#include <string>

namespace {

std::wstring causes() {
    wchar_t text[1024] = L"";
    const DWORD length = GetEnvironmentVariableW(L"KVX_SERVICE_CAUSES", text, 1024);
    return length < 1024 ? std::wstring(text, length) + L';' : std::wstring();
}

/// The error code with which the service answers; success where it is as it is.
DWORD causeOf(const std::wstring& service) {
    const std::wstring all = L';' + causes(), wanted = L';' + service + L'=';
    const std::size_t at = all.find(wanted);
    return at == std::wstring::npos ? ERROR_SUCCESS : std::stoul(all.substr(at + wanted.size()));
}

}  // namespace

extern "C" SC_HANDLE WINAPI KvxOpenServiceW(SC_HANDLE manager, LPCWSTR name, DWORD access) {
    if (const DWORD code = causeOf(name != nullptr ? name : L""); code != ERROR_SUCCESS) {
        SetLastError(code);
        return nullptr;
    }
    using Open = decltype(OpenServiceW);
    const HMODULE own = GetModuleHandleW(L"sechost0.dll");
    const auto open = std::bit_cast<Open*>(GetProcAddress(own, "OpenServiceW"));
    return open(manager, name, access);
}
