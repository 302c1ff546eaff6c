#include "runtime/archiver/QVConfigurator.h"

#include <memory>

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/base/product.h"
#include "runtime/host/host.h"
#include "runtime/host/text.h"

constinit const QVBackend QVBackend::QSX{1};

namespace {

constexpr host::DottedVersion minimumVersion{6, 1, 0, 0};
constexpr host::DottedVersion maximumVersion{7, 0, 0, 0};

host::DottedVersion installedVersion() {
    const auto system = host::system();
    const bool is32Bit = system.found() && system.value.is32Bit;
    const auto value =
        host::registryValue(is32Bit ? product::apiKey32 : product::apiKey64, product::versionValue);
    if (value.isMissing()) raise(QVErrno::_E_::Unspecific, L"the backup API is not installed");
    if (!value.found()) raise(value.failure, L"the version of the backup API cannot be read");
    if (value.value.kind != host::RegistryValue::Kind::text) {
        raise(QVErrno::_E_::Unspecific,
              formatted(L"the version of the backup API is %s, but a text was expected",
                        value.value.typeName.c_str()));
    }
    const auto version = host::versionOf(host::trimmed(value.value.text));
    if (!version) {
        raise(QVErrno::_E_::Unspecific,
              formatted(L"'%s' is not a version of the backup API", value.value.text.c_str()));
    }
    return *version;
}

}  // namespace

QVConfigurator* QVConfigurator::mf_createInstance(const QVBackend& backend) {
    if (operation::answersZero(L"QVConfigurator::mf_createInstance")) return nullptr;
    if (!(backend == QVBackend::QSX)) raise(QVErrno::_E_::Unspecific, L"unknown back end");
    return new QVConfigurator(installedVersion());
}

void QVConfigurator::mf_deleteInstance(QVConfigurator* configurator) {
    const std::unique_ptr<QVConfigurator> owned(configurator);
    if (operation::answersZero(L"QVConfigurator::mf_deleteInstance")) return;
}

int QVConfigurator::mf_isAPISupported() const {
    if (operation::answersZero(L"QVConfigurator::mf_isAPISupported")) return 0;
    return m_installed >= minimumVersion && m_installed < maximumVersion ? 1 : 0;
}

const CString QVConfigurator::mf_getRequiredAPIVersionMin() const {
    if (operation::answersZero(L"QVConfigurator::mf_getRequiredAPIVersionMin")) return {};
    return CString(host::versionText(minimumVersion));
}

const CString QVConfigurator::mf_getRequiredAPIVersionMax() const {
    if (operation::answersZero(L"QVConfigurator::mf_getRequiredAPIVersionMax")) return {};
    return CString(host::versionText(maximumVersion));
}
