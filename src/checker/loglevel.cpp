#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVRegistry.h"
#include "runtime/base/QVString.h"
#include "runtime/host/os.h"

namespace {

struct LevelRow {
    const QVLogData& level;
    MessageId<wchar_t> message;
};

const LevelRow levelRows[] = {
    {QVLogData::LEVEL_S, 3304}, {QVLogData::LEVEL_E, 3299}, {QVLogData::LEVEL_W, 3306},
    {QVLogData::LEVEL_I, 3302}, {QVLogData::LEVEL_T, 3305}, {QVLogData::LEVEL_D, 3297},
    {QVLogData::LEVEL_L, 3303}, {QVLogData::LEVEL_C, 3300}, {QVLogData::LEVEL_F, 3301},
    {QVLogData::LEVEL_X, 3298},
};

}  // namespace

const CString QVInstallationChecker::mf_getLogLevel(const CString& keyPath, const CString& valueName,
                                                    const CString& programName, unsigned long* levelOut,
                                                    int* problem) {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getLogLevel";
    *problem = 0;
    unsigned long mask = 0;
    try {
        if (!QVRegistry::mf_exists(valueName, keyPath, HKEY_LOCAL_MACHINE)) {
            *problem = 1;
            return QVString(3309, programName, keyPath, valueName);
        }
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure checking existence of log level registry key\r\n%sexpected root path = '%s'\r\n"
                 L"%skey = '%s'\r\n%sprogram name = '%s'\r\n%s%s",
                 QVLog::TAB, keyPath, QVLog::TAB, valueName, QVLog::TAB, programName, QVLog::TAB, error);
        *problem = 1;
        return QVString(3307, keyPath, valueName);
    }
    writeLog(
        QVLogData::LEVEL_I, originator,
        L"Log level key found in the registry key :\r\n%sroot path = '%s'\r\n%skey = '%s'\r\n%sprogram name = '%s'",
        QVLog::TAB, keyPath, QVLog::TAB, valueName, QVLog::TAB, programName);

    try {
        QVRegistry::mf_getValue(valueName, mask, keyPath, HKEY_LOCAL_MACHINE);
    } catch (QVErrno& error) {
        // This record runs on where others break their lines.
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure reading log level\r\n%sroot path = '%s'\r\n%skey = '%s'%sprogram name = '%s'%s%s",
                 QVLog::TAB, keyPath, QVLog::TAB, valueName, QVLog::TAB, programName, QVLog::TAB, error);
        *problem = 1;
        return QVString(3310, programName, keyPath, valueName);
    }
    writeLog(QVLogData::LEVEL_I, originator,
             L"Loglevel read completed:\r\n%sroot path = '%s'\r\n%skey = '%s'\r\n%sprogram name = '%s'\r\n"
             L"%slog level = '%lu'",
             QVLog::TAB, keyPath, QVLog::TAB, valueName, QVLog::TAB, programName, QVLog::TAB, mask);

    CString result;
    for (const LevelRow& row : levelRows) {
        result += QVString(row.message, (mask & row.level.m_mask) != 0 ? L'x' : L'.');
    }
    *problem = 0;
    if (levelOut != nullptr) *levelOut = mask;
    return result;
}

const CString QVInstallationChecker::mf_implGetOwnLogLevel(const CString& keyPath, const CString& valueName,
                                                           const CString& programName, int* problem) {
    *problem = 0;
    unsigned long level = 0;
    return mf_getLogLevel(keyPath, valueName, programName, &level, problem);
}
