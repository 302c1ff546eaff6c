#include "runtime/host/host.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/library.h"
#include "runtime/host/windows/paths.h"

namespace host {

namespace {

struct VersionLibrary {
    windows::Library library{L"version.dll"};
    windows::Function<DWORD(DWORD, LPCWSTR, LPDWORD)> sizeOf{library, "GetFileVersionInfoSizeExW"};
    windows::Function<BOOL(DWORD, LPCWSTR, DWORD, DWORD, LPVOID)> read{library, "GetFileVersionInfoExW"};
    windows::Function<BOOL(LPCVOID, LPCWSTR, LPVOID*, PUINT)> query{library, "VerQueryValueW"};
};

const VersionLibrary& versionLibrary() {
    static const VersionLibrary library;
    return library;
}

/// The version that the image itself carries; a language file beside it can carry another one.
constexpr DWORD neutral = 0x02;

bool meansNoVersion(DWORD code) {
    return code == ERROR_RESOURCE_DATA_NOT_FOUND || code == ERROR_RESOURCE_TYPE_NOT_FOUND ||
           code == ERROR_RESOURCE_NAME_NOT_FOUND || code == ERROR_RESOURCE_LANG_NOT_FOUND;
}

Answer<FileVersion> without(DWORD code) {
    return meansNoVersion(code) ? Answer<FileVersion>::missing()
                                : windows::missingOrUnanswered<FileVersion>(code);
}

Answer<FileVersion> fixedVersion(const std::vector<BYTE>& block) {
    void* found = nullptr;
    UINT size = 0;
    const bool present = versionLibrary().query(block.data(), L"\\", &found, &size) != 0;
    if (!present || size < sizeof(VS_FIXEDFILEINFO)) return {};
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(found);
    if (fixed.dwSignature != VS_FFI_SIGNATURE) return {};
    return FileVersion{HIWORD(fixed.dwFileVersionMS), LOWORD(fixed.dwFileVersionMS),
                       HIWORD(fixed.dwFileVersionLS), LOWORD(fixed.dwFileVersionLS)};
}

}  // namespace

Answer<FileVersion> fileVersion(const std::wstring& path) {
    const VersionLibrary& version = versionLibrary();
    for (const DWORD error : {version.sizeOf.error(), version.read.error(), version.query.error()}) {
        if (error != ERROR_SUCCESS) return windows::unanswered<FileVersion>(error);
    }

    const std::wstring asked = windows::withoutLimit(path);
    DWORD ignored = 0;
    const DWORD size = version.sizeOf(neutral, asked.c_str(), &ignored);
    if (size == 0) return without(GetLastError());
    std::vector<BYTE> block(size);
    if (!version.read(neutral, asked.c_str(), 0, size, block.data())) return without(GetLastError());
    return fixedVersion(block);
}

}  // namespace host
