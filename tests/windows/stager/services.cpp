#include "orders.h"

namespace {

class Service {
public:
    explicit Service(SC_HANDLE handle) : m_handle(handle) {}
    ~Service() {
        if (m_handle != nullptr) CloseServiceHandle(m_handle);
    }
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    SC_HANDLE get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

private:
    SC_HANDLE m_handle;
};

constexpr int attempts = 100;
constexpr DWORD pauseMilliseconds = 20;

/// Waits until the service has left every state that leads to another.
DWORD settled(const Service& service) {
    SERVICE_STATUS status{};
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (!QueryServiceStatus(service.get(), &status)) return 0;
        if (status.dwCurrentState == SERVICE_RUNNING || status.dwCurrentState == SERVICE_STOPPED) break;
        Sleep(pauseMilliseconds);
    }
    return status.dwCurrentState;
}

/// Lets the driver's own entry refuse the start.
DWORD fail(const Service& service) {
    return StartServiceW(service.get(), 0, nullptr) ? ERROR_SERVICE_ALREADY_RUNNING : ERROR_SUCCESS;
}

DWORD start(const Service& service) {
    if (!StartServiceW(service.get(), 0, nullptr)) return GetLastError();
    return settled(service) == SERVICE_RUNNING ? ERROR_SUCCESS : ERROR_SERVICE_REQUEST_TIMEOUT;
}

DWORD setImage(const Service& service, const std::wstring& image) {
    const bool done =
        ChangeServiceConfigW(service.get(), SERVICE_NO_CHANGE, SERVICE_NO_CHANGE, SERVICE_NO_CHANGE,
                             image.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr) != 0;
    return done ? ERROR_SUCCESS : GetLastError();
}

DWORD startFrom(const std::wstring& spare, const Service& service, const std::wstring& image) {
    for (const DWORD code : {setImage(service, spare), start(service)}) {
        if (code != ERROR_SUCCESS) return code;
    }
    return setImage(service, image);
}

}  // namespace

DWORD removeService(const std::wstring& name) {
    const Service manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_ALL_ACCESS));
    if (!manager) return GetLastError();
    const Service service(OpenServiceW(manager.get(), name.c_str(), SERVICE_ALL_ACCESS));
    if (!service) {
        const DWORD code = GetLastError();
        return code == ERROR_SERVICE_DOES_NOT_EXIST ? ERROR_SUCCESS : code;
    }
    SERVICE_STATUS status{};
    if (ControlService(service.get(), SERVICE_CONTROL_STOP, &status)) settled(service);
    return DeleteService(service.get()) ? ERROR_SUCCESS : GetLastError();
}

DWORD makeService(const std::wstring& name, const std::wstring& state, const std::wstring& image,
                  const std::wstring& spare) {
    // One that a run left behind which was ended by force.
    if (const DWORD code = removeService(name); code != ERROR_SUCCESS) return code;
    const Service manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_ALL_ACCESS));
    if (!manager) return GetLastError();
    // None is made without an image; it can be taken away later.
    const std::wstring& first = image.empty() ? spare : image;
    const Service service(CreateServiceW(manager.get(), name.c_str(), nullptr, SERVICE_ALL_ACCESS,
                                         SERVICE_KERNEL_DRIVER, SERVICE_DEMAND_START, SERVICE_ERROR_NORMAL,
                                         first.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr));
    if (!service) return GetLastError();
    if (state == L"stopped") return ERROR_SUCCESS;
    if (state == L"failing") return fail(service);
    if (!image.empty() && start(service) == ERROR_SUCCESS) return ERROR_SUCCESS;
    return startFrom(spare, service, image);
}
