#include "runtime/host/host.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/handle.h"
#include "runtime/host/windows/image_path.h"
#include "runtime/host/windows/paths.h"

namespace host {

namespace {

using ServiceHandle = windows::Owner<windows::NullableTraits<SC_HANDLE, CloseServiceHandle>>;

std::wstring nameOfState(DWORD state) {
    switch (state) {
        case SERVICE_STOPPED: return L"stopped";
        case SERVICE_START_PENDING: return L"start pending";
        case SERVICE_STOP_PENDING: return L"stop pending";
        case SERVICE_RUNNING: return L"running";
        case SERVICE_CONTINUE_PENDING: return L"continue pending";
        case SERVICE_PAUSE_PENDING: return L"pause pending";
        case SERVICE_PAUSED: return L"paused";
        default: return L"unknown";
    }
}

/// The path of the image as the service's configuration has it.
windows::FilledText configuredImage(SC_HANDLE service) {
    std::vector<QUERY_SERVICE_CONFIGW> memory(16);
    const windows::Filled filled =
        windows::fill(memory, [&](QUERY_SERVICE_CONFIGW* config, DWORD& size) -> DWORD {
            DWORD needed = 0;
            const auto bytes = static_cast<DWORD>(size * sizeof *config);
            if (QueryServiceConfigW(service, config, bytes, &needed)) return ERROR_SUCCESS;
            size = static_cast<DWORD>(needed / sizeof *config + 1);
            return GetLastError();
        });
    if (filled.code != ERROR_SUCCESS) return {filled.code, {}};
    const wchar_t* path = memory.front().lpBinaryPathName;
    return {ERROR_SUCCESS, path != nullptr ? path : L""};
}

Answer<ServiceFacts> without(DWORD code) {
    const bool missing = code == ERROR_SERVICE_DOES_NOT_EXIST;
    return missing ? Answer<ServiceFacts>::missing() : windows::unanswered<ServiceFacts>(code);
}

}  // namespace

Answer<ServiceFacts> service(const std::wstring& name) {
    const ServiceHandle manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
    if (!manager) return windows::unanswered<ServiceFacts>(GetLastError());
    const ServiceHandle handle(
        OpenServiceW(manager.get(), name.c_str(), SERVICE_QUERY_STATUS | SERVICE_QUERY_CONFIG));
    if (!handle) return without(GetLastError());

    SERVICE_STATUS status{};
    if (!QueryServiceStatus(handle.get(), &status)) return without(GetLastError());
    const windows::FilledText image = configuredImage(handle.get());
    if (image.code != ERROR_SUCCESS) return without(image.code);
    const windows::FilledText directory = windows::systemWindowsDirectory();
    if (directory.code != ERROR_SUCCESS) return without(directory.code);

    ServiceFacts facts;
    facts.running = status.dwCurrentState == SERVICE_RUNNING;
    facts.state = nameOfState(status.dwCurrentState);
    facts.imagePath = windows::imagePathFrom(image.text, name, directory.text);
    return facts;
}

}  // namespace host
