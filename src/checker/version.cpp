#include <memory>

#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/archiver/QVConfigurator.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVRegistry.h"
#include "runtime/base/QVString.h"
#include "runtime/base/QVSystem.h"
#include "runtime/base/QVVersion.h"
#include "runtime/base/product.h"
#include "runtime/device/QVDevice.h"
#include "runtime/host/os.h"

namespace {

namespace pelmora {

const wchar_t* const originator = L"QVInstallationChecker::mf_getSpecificPelmora";

/// How the trace log words the steps for one of the two products.
struct Wording {
    const wchar_t* checkFailed;
    const wchar_t* notPresent;
    const wchar_t* readFailed;
    const wchar_t* found;
};

constexpr Wording backupClient = {
    L"Failure checking existence of Pelmora BackUp client version in the registry key \r\n%sexpected root path = '%s'\r\n"
    L"%skey = '%s'\r\n%s%s\r\n%scontinuing ...",
    L"Pelmora BackUp client version not present in the expected registry key location.\r\n%sexpected root path = '%s'\r\n"
    L"%skey = '%s'\r\n%scontinuing ...",
    L"Failure retrieving Pelmora BackUp Client version\r\n%sroot path = '%s'\r\n%skey = '%s'\r\n%s%s\r\n%scontinuing ...",
    L"Found Pelmora Back Up Client version: '%s'",
};

constexpr Wording api = {
    L"Failure checking existence of Pelmora API version in the registry key\r\n%sexpected root path = '%s'\r\n"
    L"%skey = '%s'\r\n%s%s\r\n%scontinuing...",
    L"Pelmora API version not present in the registry key\r\n%sexpected root path = '%s'\r\n%skey = '%s'\r\n%scontinuing...",
    L"Failure retrieving Pelmora API version\r\n%sroot path = '%s'\r\n%skey = '%s'\r\n%s%s\r\n%scontinuing...",
    L"Found Pelmora API version: '%s'",
};

/// The version that stands in `key`, or the text that stands for it. Returns whether the value exists,
/// readable or not.
bool readVersion(const Wording& wording, const CString& key, CString& version, int* problem) {
    const CString name = product::versionValue;
    bool exists = false;
    try {
        exists = QVRegistry::mf_exists(name, key, HKEY_LOCAL_MACHINE) != 0;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, wording.checkFailed, QVLog::TAB, key, QVLog::TAB, name,
                 QVLog::TAB, error, QVLog::TAB);
    }
    if (!exists) {
        version = QVString(3336);
        *problem = 1;
        writeLog(QVLogData::LEVEL_E, originator, wording.notPresent, QVLog::TAB, key, QVLog::TAB, name,
                 QVLog::TAB);
        return false;
    }
    try {
        QVRegistry::mf_getValue(name, version, key, HKEY_LOCAL_MACHINE);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, wording.readFailed, QVLog::TAB, key, QVLog::TAB, name,
                 QVLog::TAB, error, QVLog::TAB);
        version = QVString(3273);
        *problem = 1;
    }
    writeLog(QVLogData::LEVEL_I, originator, wording.found, version);
    return true;
}

/// Null when it cannot be made; the report then says so.
std::unique_ptr<QVConfigurator> makeConfigurator(const CString& apiVersion, CString& result, int* problem) {
    try {
        return std::unique_ptr<QVConfigurator>(QVConfigurator::mf_createInstance(QVBackend::QSX));
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure determining Pelmora APIs version\r\n%sversion = '%s':\r\n%s%s", QVLog::TAB,
                 apiVersion, QVLog::TAB, error);
        result += QVString(3244, apiVersion, L"N/A");
        *problem = 1;
        return nullptr;
    }
}

void deleteConfigurator(std::unique_ptr<QVConfigurator> configurator) {
    try {
        QVConfigurator::mf_deleteInstance(configurator.release());
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, L"Failure deleting configurator instance: %s", error);
    }
}

/// Adds to `result` when the API is not supported, or that cannot be told.
void checkSupport(const CString& apiVersion, CString& result, int* problem) {
    std::unique_ptr<QVConfigurator> configurator = makeConfigurator(apiVersion, result, problem);
    if (!configurator) return;
    if (!configurator->mf_isAPISupported()) {
        *problem = 1;
        const CString range = formatted(L">= %s, < %s", configurator->mf_getRequiredAPIVersionMin(),
                                        configurator->mf_getRequiredAPIVersionMax());
        result += QVString(3337, range);
    }
    deleteConfigurator(std::move(configurator));
}

}  // namespace pelmora

}  // namespace

const CString QVInstallationChecker::mf_getVersion(int* problem) {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getVersion";
    const CString key = product::clientKey;
    const CString name = product::versionValue;
    *problem = 1;
    try {
        if (!QVRegistry::mf_exists(name, key, HKEY_LOCAL_MACHINE)) return QVString(3252, key, name);
    } catch (QVErrno& error) {
        writeLog(
            QVLogData::LEVEL_E, originator,
            L"Failure checking existence of HsmlClient version in the registry key\r\n%sroot path = '%s'\r\n"
            L"%skey = '%s'\r\n%s%s",
            QVLog::TAB, key, QVLog::TAB, name, QVLog::TAB, error);
        return QVString(3250) + formatted(L"    %s\\%s\n", key, name);
    }
    CString version;
    try {
        QVRegistry::mf_getValue(name, version, key, HKEY_LOCAL_MACHINE);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure retrieving HsmlClient version from the registry key\r\n%sroot path = '%s'\r\n"
                 L"%skey = '%s'\r\n%s%s",
                 QVLog::TAB, key, QVLog::TAB, name, QVLog::TAB, error);
        return QVString(3251, key, name);
    }
    *problem = 0;
    return version;
}

const CString QVInstallationChecker::mf_getSpecificPelmora(int* problem) {
    *problem = 0;
    CString backupVersion;
    CString apiVersion;
    pelmora::readVersion(pelmora::backupClient, product::backupClientKey, backupVersion, problem);
    const CString apiKey = QVSystem::mf_is32Bit() ? product::apiKey32 : product::apiKey64;
    const bool apiExists = pelmora::readVersion(pelmora::api, apiKey, apiVersion, problem);
    CString result = QVString(3341, backupVersion, apiVersion);
    if (apiExists) pelmora::checkSupport(apiVersion, result, problem);
    return result;
}

const CString QVInstallationChecker::mf_getDriverVersion(int* problem) {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getDriverVersion";
    *problem = 1;
    QVErrnoData failure;
    CString result;
    try {
        QVDevice::mf_startDriver();
        const unsigned long version = QVDevice::mf_queryDriverVersion();
        QVDevice::mf_stopDriver();
        result = QVVersion::mf_VersionNumberToVersionString(version);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, L"Error retrieving driver version\r\n%s%s", QVLog::TAB,
                 error);
        failure = error.mf_getData();
        result = QVString(3276);
    }
    *problem = failure.mf_getValue() != 0 ? 1 : 0;
    return result;
}

const CString QVInstallationChecker::mf_getWindowsVersion(int* problem) {
    *problem = QVSystem::mf_isAtLeastW2003(0) ? 0 : 1;
    return L"    " + QVSystem::mf_getSystemVersionString() + L"\r\n";
}

const CString QVInstallationChecker::mf_getSystemInfo() {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getSystemInfo";
    const CString result = QVSystem::mf_toString(L"    ");
    writeLog(QVLogData::LEVEL_I, originator, L"System info:\r\n%s", result);
    return result;
}
