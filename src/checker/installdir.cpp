#include <limits>
#include <new>
#include <string>

#include "checker/QVInstallationChecker.h"
#include "checker/report_file.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVPath.h"
#include "runtime/base/QVRegistry.h"
#include "runtime/base/QVString.h"
#include "runtime/base/product.h"
#include "runtime/host/os.h"

namespace {

/// The one originator that carries quotation marks.
const wchar_t* const constructorName = L"\"QVInstallationChecker::QVInstallationChecker\"";

/// Makes room for `size` units, all zero. False when there is no such room; a size whose bytes overflow 32
/// bits is one for which there is none.
bool allocate(std::wstring& buffer, UINT size) {
    if (size > std::numeric_limits<UINT>::max() / 2) return false;
    try {
        buffer.assign(size, L'\0');
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace

QVInstallationChecker::QVInstallationChecker() {
    const CString driverFile = mf_implDriverPath();
    const CString signatureFile = formatted(L"..\\PELINV\\PELQSXRDQ%2.2d%2.2d.SYS2", 6, 1);
    const CString pluginFile = mf_implPluginPath();
    mf_implListFiles(signatureFile, driverFile, pluginFile);
    try {
        mf_implReadInstallDir();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, constructorName,
                 L"Failure reading installation dir\r\n%s%s\r\n%scontinuing...", QVLog::TAB, error,
                 QVLog::TAB);
    }
    mf_implRemoveOldReport();
}

QVInstallationChecker::~QVInstallationChecker() {
    if (m_reportFile != nullptr) {
        std::fclose(m_reportFile);
        m_reportFile = nullptr;
    }
}

/// Empty when the Windows directory is unknown.
CString QVInstallationChecker::mf_implDriverPath() {
    try {
        const CString systemDirectory = QVPath::mf_appendDirectory(mf_getWindowsDirectory(), L"system32");
        return formatted(L"%sdrivers\\%s.sys", systemDirectory, product::driver);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, constructorName, L"Failure retrieving windows directory\r\n%s%s",
                 QVLog::TAB, error);
        return {};
    }
}

/// Empty when no backup-archive client is installed, or where it is cannot be told.
CString QVInstallationChecker::mf_implPluginPath() {
    CString path;
    try {
        if (QVRegistry::mf_PathExists(product::backupClientKey, HKEY_LOCAL_MACHINE)) {
            CString directory;
            QVRegistry::mf_getValue(product::pathValue, directory, product::backupClientKey,
                                    HKEY_LOCAL_MACHINE);
            path = QVPath::mf_appendFile(directory, L"plugins\\kvxarcplug.dll");
        }
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, constructorName,
                 L"Failure querying existence of B/A client installation path:\r\n%s%s", QVLog::TAB, error);
    }
    return path;
}

void QVInstallationChecker::mf_implReadInstallDir() {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_implReadInstallDir";
    const CString key = product::clientKey;
    const CString name = product::pathValue;
    m_installDirFound = 0;
    int exists = 0;
    try {
        exists = QVRegistry::mf_exists(name, key, HKEY_LOCAL_MACHINE);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Installation path registry value not found: %s\r\n%sroot path = '%s'\r\n%skey = '%s'",
                 error, QVLog::TAB, key, QVLog::TAB, name);
        throw QVErrno(error.mf_getData());
    }
    if (!exists) {
        writeLog(QVLogData::LEVEL_I, originator,
                 L"Installation path registry value not found.\r\n%sroot path = '%s'\r\n%skey = '%s'",
                 QVLog::TAB, key, QVLog::TAB, name);
        return;
    }
    writeLog(QVLogData::LEVEL_I, originator,
             L"Installation path registry value found:\r\n%sroot path = '%s'\r\n%skey = '%s'", QVLog::TAB,
             key, QVLog::TAB, name);
    try {
        QVRegistry::mf_getValue(name, m_installDir, key, HKEY_LOCAL_MACHINE);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure retrieving installation path\r\n%sroot path = '%s'\r\n%skey = '%s'", QVLog::TAB,
                 key, QVLog::TAB, name);
        throw QVErrno(error.mf_getData());
    }
    const bool ended = m_installDir.IsEmpty() || m_installDir.units().back() == L'\\';
    if (!ended) m_installDir += L'\\';
    writeLog(QVLogData::LEVEL_I, originator, L"Installation dir read completed:\r\n%s'%s'", QVLog::TAB,
             m_installDir);
    m_installDirFound = 1;
}

CString QVInstallationChecker::mf_getWindowsDirectory() {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getWindowsDirectory";

    SetLastError(0);
    const UINT size = GetWindowsDirectoryW(nullptr, 0);
    if (size == 0) {
        const DWORD code = GetLastError();
        const QVErrno error(QVErrnoData(QVErrno::_E_::Path), code);
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure while retrieving buffer size from Windows GetWindowsDirectory()\r\n%s%s",
                 QVLog::TAB, error);
        throw error;
    }

    std::wstring buffer;
    if (!allocate(buffer, size)) {
        writeLog(
            QVLogData::LEVEL_E, originator,
            L"Failure allocating memory for buffer of system directory name\r\n%sTCHARs to allocate: %lu",
            QVLog::TAB, size);
        throw QVErrno(QVErrnoData(QVErrno::_E_::Memory));
    }

    SetLastError(0);
    const UINT length = GetWindowsDirectoryW(buffer.data(), size);
    if (length == 0) {
        const DWORD code = GetLastError();
        const QVErrno error(QVErrnoData(QVErrno::_E_::Path), code);
        writeLog(QVLogData::LEVEL_E, originator, L"Windows GetWindowsDirectory failed with error: %s", error);
        throw error;
    }
    if (length > size - 1) {
        const UINT required = GetWindowsDirectoryW(nullptr, 0);
        writeLog(
            QVLogData::LEVEL_E, originator,
            L"Buffer too small to hold system directory name (%lu chars)\r\n%s%lu chars required instead",
            size, QVLog::TAB, required);
        throw QVErrno(QVErrnoData(QVErrno::_E_::BufferTooSmall));
    }
    return CString(buffer.c_str());
}

/// The file of an earlier run would pass for this run's; where its existence cannot be told, it is taken to
/// exist.
void QVInstallationChecker::mf_implRemoveOldReport() {
    if (reportFileExists(constructorName, true) && !DeleteFileW(reportFileName)) {
        writeLog(QVLogData::LEVEL_E, constructorName, L"Failure deleting old file '%s'\r\n%scontinuing...",
                 reportFileName, QVLog::TAB);
    }
}

const CString QVInstallationChecker::mf_getInstallDirReport(int* problem) {
    if (m_installDirFound == 1) {
        *problem = 0;
        return L"    " + m_installDir;
    }
    *problem = 1;
    return QVString(3289);
}
