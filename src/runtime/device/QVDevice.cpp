#include "runtime/device/QVDevice.h"

#include <optional>
#include <string>

#include "runtime/base/QVErrno.h"
#include "runtime/base/QVVersion.h"
#include "runtime/base/operation.h"
#include "runtime/base/product.h"
#include "runtime/host/host.h"

namespace {

constexpr std::uint32_t errorFileNotFound = 2;
constexpr std::uint32_t errorServiceNotActive = 1062;
constexpr std::uint32_t errorServiceDoesNotExist = 1060;
constexpr std::uint32_t errorResourceTypeNotFound = 1813;

std::optional<std::wstring> imagePath;

}  // namespace

void QVDevice::mf_startDriver() {
    if (operation::answersZero(L"QVDevice::mf_startDriver", product::driver)) return;
    const auto service = host::service(product::driver);
    const CString name = formatted(L"driver service '%s'", product::driver);
    if (service.isMissing())
        raise(QVErrno::_E_::System, name + L" is not installed", errorServiceDoesNotExist);
    if (!service.found()) raise(service.failure, name + L" cannot be queried");
    if (!service.value.running) {
        raise(QVErrno::_E_::System, formatted(L"%s does not run (%s)", name, service.value.state.c_str()),
              errorServiceNotActive);
    }
    imagePath = service.value.imagePath;
}

unsigned long QVDevice::mf_queryDriverVersion() {
    if (operation::answersZero(L"QVDevice::mf_queryDriverVersion", product::driver)) return 0;
    if (!imagePath) raise(QVErrno::_E_::Unspecific, L"the driver was not started");
    const auto version = host::fileVersion(*imagePath);
    const CString image(*imagePath);
    const CString unread = formatted(L"the version of driver image '%s' cannot be read", image);
    if (version.isMissing()) {
        const auto file = host::fileKind(*imagePath);
        if (file.unanswered()) raise(file.failure, unread);
        if (file.isMissing())
            raise(QVErrno::_E_::System, formatted(L"driver image '%s' is missing", image), errorFileNotFound);
        raise(QVErrno::_E_::System, formatted(L"driver image '%s' has no version", image),
              errorResourceTypeNotFound);
    }
    if (!version.found()) raise(version.failure, unread);
    return QVVersion::pack(
        {version.value.major, version.value.minor, version.value.build, version.value.revision});
}

void QVDevice::mf_stopDriver() {
    if (operation::answersZero(L"QVDevice::mf_stopDriver", product::driver)) return;
    imagePath.reset();
}
