#include "main/entry.h"

#include "checker/QVInstallationChecker.h"
#include "checker/within_latin1.h"
#include "checker/write_log.h"
#include "main/front.h"
#include "main/usage.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/cluster/QVClusterMain.h"
#include "runtime/host/os.h"
#include "runtime/util/QVCmdline.h"
#include "runtime/util/QVMain.h"
#include "runtime/util/QVTerminalPrinter.h"

namespace {

const wchar_t* const originator = L"_tmain";

constexpr int noMainSingleton = 12;

/// Returns whether the log was started; else `errorRecord` says why not.
bool startLogging(QVErrnoData& errorRecord) {
    try {
        QVMain::mf_startLogging(CString(logFileName));
        return true;
    } catch (QVErrno& error) {
        errorRecord = error.mf_getData();
        const CString originatorMessage = errorRecord.mf_getOriginatorMessage();
        QVErrnoData::mf_setMessage(errorRecord, L"QRM27047E", __LINE__, 0, 0, 0, originatorMessage);
        return false;
    }
}

void startStorage() {
    try {
        QVMain::mf_startStorage(0);
    } catch (QVErrno& error) {
        QVTerminalPrinter::mf_print(QVString(3552, error.mf_toString()));
        writeLog(QVLogData::LEVEL_E, originator, L"Error in starting storage\r\n%s%s\r\ncontinuing...",
                 QVLog::TAB, error);
    } catch (...) {
        QVTerminalPrinter::mf_print(QVString(3553));
        writeLog(QVLogData::LEVEL_E, originator, L"Error in starting storage\r\ncontinuing...");
    }
}

/// A machine without the cluster feature is normal: nothing is shown.
void startCluster() {
    try {
        QVClusterMain::mf_createInstance();
        QVClusterMain::mf_startClusterStorage(0);
        QVClusterMain::mf_startCluster(0);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, L"Failure starting cluster feature: %s", error);
    }
}

void run(int argc, wchar_t* argv[], unsigned int* usageShown) {
    try {
        QVCmdline cmdline(argc, argv);  // lives as long as the run; the front builds one of its own
        QVInstallationChecker checker;
        mf_run(checker, argc, argv, usageShown);
    } catch (QVErrno& error) {
        QVTerminalPrinter::mf_print(QVString(3502, error.mf_toString()));
        writeLog(QVLogData::LEVEL_E, originator, L"Error running program\r\n%s%s", QVLog::TAB, error);
    } catch (...) {
        QVTerminalPrinter::mf_print(QVString(3503));
        writeLog(QVLogData::LEVEL_E, originator, L"Unknow error running program");
    }
}

void tearDown() {
    QVTerminalPrinter::complete();
    try {
        QVClusterMain::mf_stopCluster();
        QVClusterMain::mf_stopClusterStorage();
        QVClusterMain::mf_deleteInstance();
        QVMain::mf_stopStorage();
        QVMain::mf_stopLogging();
        QVMain::mf_deleteInstance();
    } catch (...) {
        QVTerminalPrinter::mf_print(QVString(3034));
    }
}

}  // namespace

int _tmain(int argc, wchar_t* argv[]) {
    try {
        QVMain::mf_createInstance(1);
    } catch (QVErrno& error) {
        const CString text = withinLatin1(error.mf_toString());
        fwprintf_s(stderr, L"Failure creating main singleton: %s", static_cast<const wchar_t*>(text));
        return noMainSingleton;
    }

    QVErrnoData errorRecord;
    unsigned int usageShown = 0;
    if (startLogging(errorRecord)) {
        startStorage();
        startCluster();
        run(argc, argv, &usageShown);
    }
    if (usageShown == 0) {
        QVTerminalPrinter::mf_print(L"\r\n");
        QVTerminalPrinter::mf_print(QVString(3089, CString(logFileName)));
    }
    tearDown();
    return static_cast<int>(errorRecord.mf_getValue());
}
