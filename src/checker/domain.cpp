#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVMain.h"

namespace {

const wchar_t* const originator = L"QVInstallationChecker::mf_getDomainInfos";

void log(const wchar_t* format, const QVErrno& error) {
    writeLog(QVLogData::LEVEL_E, originator, format, QVLog::TAB, error);
}

// Each step below returns whether the next one is worth trying. Some handlers add their line before they log,
// some after: should the second one fail, that tells which of the two stands.

bool start(CString& result, int& problem) {
    try {
        QVMain::mf_startDomainController(0);
        return true;
    } catch (QVErrno& error) {
        problem = 1;
        result += QVString(3259, error.mf_toString());
        log(L"Failure creating instance of DomainController\r\n%s%s", error);
        return false;
    }
}

bool addMembership(CString& result, int& problem) {
    try {
        if (QVDomainController::mf_isJoined()) return true;
    } catch (QVErrno& error) {
        problem = 1;
        result += QVString(3295, error.mf_toString());
        log(L"Failure checking whether the domain is joined or not\r\n%s%s", error);
        return false;
    }
    result += QVString(3044);
    return false;
}

bool addDomainName(CString& result, int& problem) {
    try {
        result += QVString(3261, QVDomainController::mf_getDomainName());
        return true;
    } catch (QVErrno& error) {
        problem = 1;
        log(L"Failure retrieving controller domain name\r\n%s%s", error);
        result += QVString(3278, error.mf_toString());
        return false;
    }
}

void addControllerName(CString& result, int& problem) {
    try {
        result += QVString(3329, QVDomainController::mf_getPDCName());
    } catch (QVErrno& error) {
        problem = 1;
        result += QVString(3328, error.mf_toString());
        log(L"Failure retrieving domain controller computer name\r\n%s%s", error);
    }
}

void stop(CString& result, int& problem) {
    try {
        QVMain::mf_stopDomainController();
    } catch (QVErrno& error) {
        problem = 1;
        log(L"Failure deleting instance of DomainController\r\n%s%s", error);
        result += QVString(3258, error.mf_toString());
    }
}

}  // namespace

const CString QVInstallationChecker::mf_getDomainInfos(int& problem) {
    problem = 0;
    CString result;
    const bool named =
        start(result, problem) && addMembership(result, problem) && addDomainName(result, problem);
    if (named) addControllerName(result, problem);
    stop(result, problem);
    return result;
}
