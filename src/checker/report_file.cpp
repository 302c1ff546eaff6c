#include "checker/report_file.h"
#include "checker/QVInstallationChecker.h"
#include "checker/within_latin1.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVPath.h"
#include "runtime/host/os.h"
#include "runtime/util/QVTerminalPrinter.h"

bool reportFileExists(const wchar_t* originator, bool unless) {
    try {
        return QVPath::mf_exists(reportFileName) != 0;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, L"Failure checking existence of '%s'\r\n%s%s%scontinuing...",
                 reportFileName, QVLog::TAB, error, QVLog::TAB);
        return unless;
    }
}

bool QVInstallationChecker::mf_implOpenFile() {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_implOpenFile";
    m_reportFile = nullptr;
    const bool existed = reportFileExists(originator, true);
    if (existed && !DeleteFileW(reportFileName)) {
        writeLog(QVLogData::LEVEL_E, originator, L"Failure deleting old file '%s'\r\nContinuing...",
                 reportFileName);
    }
    if (reportFileExists(originator, existed)) return false;
    if (_wfopen_s(&m_reportFile, reportFileName, L"w") != 0) {
        writeLog(QVLogData::LEVEL_E, originator, L"Failure creating output file '%s'\r\n%scontinuing...",
                 reportFileName, QVLog::TAB);
    }
    return m_reportFile != nullptr;
}

void QVInstallationChecker::mf_implPrint(const CString& text) {
    if (m_reportFile != nullptr) {
        fwprintf_s(m_reportFile, L"%s", static_cast<const wchar_t*>(withinLatin1(text)));
    }
    QVTerminalPrinter::mf_print(text);
}
