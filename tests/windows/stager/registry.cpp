#include <winternl.h>

#include <bit>
#include <vector>

#include "orders.h"

#include <sddl.h>

namespace {

class Key {
public:
    /// Made where it is not there.
    Key(const std::wstring& path, REGSAM access)
        : m_code(static_cast<DWORD>(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0,
                                                    access | KEY_WOW64_64KEY, nullptr, &m_key, nullptr))) {}
    ~Key() {
        if (m_code == ERROR_SUCCESS) RegCloseKey(m_key);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    DWORD code() const { return m_code; }
    HKEY get() const { return m_key; }

private:
    HKEY m_key = nullptr;
    DWORD m_code;
};

std::vector<BYTE> bytesOf(const std::wstring& digits) {
    std::vector<BYTE> bytes;
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2)
        bytes.push_back(static_cast<BYTE>(std::stoul(digits.substr(at, 2), nullptr, 16)));
    return bytes;
}

}  // namespace

DWORD setRaw(const std::wstring& key, const std::wstring& name, unsigned long type,
             const std::wstring& digits) {
    // RegSetValueExW appends a terminator to some texts that have none.
    using SetValue = NTSTATUS NTAPI(HANDLE, UNICODE_STRING*, ULONG, ULONG, void*, ULONG);
    const auto setValue =
        std::bit_cast<SetValue*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtSetValueKey"));
    const Key opened(key, KEY_SET_VALUE);
    if (opened.code() != ERROR_SUCCESS) return opened.code();
    std::vector<BYTE> bytes = bytesOf(digits);
    std::wstring plain = name;
    const auto length = static_cast<USHORT>(plain.size() * sizeof(wchar_t));
    UNICODE_STRING text{length, length, plain.data()};
    const NTSTATUS status =
        setValue(opened.get(), &text, 0, type, bytes.data(), static_cast<ULONG>(bytes.size()));
    return status >= 0 ? ERROR_SUCCESS : static_cast<DWORD>(status);
}

namespace {

DWORD protect(const std::wstring& key, const wchar_t* descriptor) {
    PSECURITY_DESCRIPTOR built = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(descriptor, SDDL_REVISION_1, &built, nullptr))
        return GetLastError();
    // The owner may always change who may do what.
    const Key opened(key, WRITE_DAC);
    const DWORD code =
        opened.code() != ERROR_SUCCESS
            ? opened.code()
            : static_cast<DWORD>(RegSetKeySecurity(opened.get(), DACL_SECURITY_INFORMATION, built));
    LocalFree(built);
    return code;
}

/// The paths of the keys directly below.
std::vector<std::wstring> keysBelow(const std::wstring& key) {
    std::vector<std::wstring> paths;
    const Key opened(key, KEY_ENUMERATE_SUB_KEYS);
    wchar_t name[256];
    for (DWORD index = 0; opened.code() == ERROR_SUCCESS; ++index) {
        DWORD size = 256;
        if (RegEnumKeyExW(opened.get(), index, name, &size, nullptr, nullptr, nullptr, nullptr)) break;
        paths.push_back(key + L'\\' + name);
    }
    return paths;
}

}  // namespace

DWORD refuseKey(const std::wstring& key) {
    for (const std::wstring& below : keysBelow(key)) {
        if (const DWORD code = refuseKey(below); code != ERROR_SUCCESS) return code;
    }
    return protect(key, L"D:P(D;;GA;;;WD)(D;;GA;;;BA)");
}

DWORD allowKey(const std::wstring& key) {
    if (const DWORD code = protect(key, L"D:P(A;;GA;;;WD)(A;;GA;;;BA)"); code != ERROR_SUCCESS) return code;
    for (const std::wstring& below : keysBelow(key)) {
        if (const DWORD code = allowKey(below); code != ERROR_SUCCESS) return code;
    }
    return ERROR_SUCCESS;
}
