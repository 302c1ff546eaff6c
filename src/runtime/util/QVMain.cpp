#include "runtime/util/QVMain.h"

#include "runtime/base/QVLog.h"
#include "runtime/base/operation.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVStorage.h"

void QVMain::mf_createInstance(int kind) {
    if (operation::answersZero(L"QVMain::mf_createInstance", kind)) return;
}

void QVMain::mf_deleteInstance() {
    if (operation::answersZero(L"QVMain::mf_deleteInstance")) return;
}

void QVMain::mf_startLogging(const CString& logFileName) {
    if (operation::answersZero(L"QVMain::mf_startLogging", logFileName)) return;
    QVLog::start(logFileName);
    operation::observed = true;  // the log may trace from now on
}

int QVMain::mf_stopLogging() {
    if (operation::answersZero(L"QVMain::mf_stopLogging")) return 0;
    QVLog::stop();
    return 0;
}

void QVMain::mf_startStorage(int flags) {
    if (operation::answersZero(L"QVMain::mf_startStorage", flags)) return;
    QVStorage::start();
}

int QVMain::mf_stopStorage() {
    if (operation::answersZero(L"QVMain::mf_stopStorage")) return 0;
    QVStorage::stop();
    return 0;
}

void QVMain::mf_startDomainController(int flags) {
    if (operation::answersZero(L"QVMain::mf_startDomainController", flags)) return;
    QVDomainController::start();
}

int QVMain::mf_stopDomainController() {
    if (operation::answersZero(L"QVMain::mf_stopDomainController")) return 0;
    QVDomainController::stop();
    return 0;
}
