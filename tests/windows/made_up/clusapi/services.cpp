/// Questions about services and images that fail, where the system of a test machine refuses nothing.

#include "tests/windows/made_up/clusapi/services.h"

#include <bit>
#include <cstring>

#include "runtime/host/os.h"
#include "tests/windows/made_up/shared/imports.h"
#include "tests/windows/made_up/shared/machine.h"
#include "tests/windows/made_up/shared/quirks.h"

namespace made_up {

namespace {

/// Whether the call fails; the thread's last error is set then.
bool fails(const char* function) {
    const DWORD code = oddityOf(function, false).error;
    if (code != ERROR_SUCCESS) SetLastError(code);
    return code != ERROR_SUCCESS;
}

BOOL WINAPI queryStatus(SC_HANDLE service, LPSERVICE_STATUS status) {
    return fails("QueryServiceStatus") ? FALSE : QueryServiceStatus(service, status);
}

BOOL WINAPI queryConfig(SC_HANDLE service, LPQUERY_SERVICE_CONFIGW config, DWORD size, LPDWORD needed) {
    return fails("QueryServiceConfigW") ? FALSE : QueryServiceConfigW(service, config, size, needed);
}

using VersionSize = DWORD WINAPI(DWORD, LPCWSTR, LPDWORD);
constexpr const char* versionSizeName = "GetFileVersionInfoSizeExW";
VersionSize* ownVersionSize = nullptr;

DWORD WINAPI versionSize(DWORD flags, LPCWSTR path, LPDWORD unused) {
    return fails(versionSizeName) ? 0 : ownVersionSize(flags, path, unused);
}

/// What is loaded by name is asked for here.
FARPROC WINAPI addressOf(HMODULE library, LPCSTR name) {
    const FARPROC own = GetProcAddress(library, name);
    if (own == nullptr || std::strcmp(name, versionSizeName) != 0) return own;
    ownVersionSize = std::bit_cast<VersionSize*>(own);
    return std::bit_cast<FARPROC>(&versionSize);
}

}  // namespace

void replaceServices() {
    replaceImport("ADVAPI32.dll", "QueryServiceStatus", std::bit_cast<void*>(&queryStatus));
    replaceImport("ADVAPI32.dll", "QueryServiceConfigW", std::bit_cast<void*>(&queryConfig));
    replaceImport("KERNEL32.dll", "GetProcAddress", std::bit_cast<void*>(&addressOf));
}

}  // namespace made_up
