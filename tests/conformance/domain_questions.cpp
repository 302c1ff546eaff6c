#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVMain.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

void askAll(const CString& when) {
    ask(L"QVDomainController::mf_isJoined", {when}, [] { return shown(QVDomainController::mf_isJoined()); });
    ask(L"QVDomainController::mf_getDomainName", {when},
        [] { return shown(QVDomainController::mf_getDomainName()); });
    ask(L"QVDomainController::mf_getPDCName", {when},
        [] { return shown(QVDomainController::mf_getPDCName()); });
}

}  // namespace

void askDomain() {
    askAll(L"before the start");
    for (const wchar_t* when : {L"started", L"started again"}) {
        ask(L"QVMain::mf_startDomainController", {when}, [] {
            QVMain::mf_startDomainController(0);
            return CString(L"started");
        });
        askAll(when);
    }
    for (const wchar_t* when : {L"stopped", L"stopped again"}) {
        ask(L"QVMain::mf_stopDomainController", {when},
            [] { return shown(QVMain::mf_stopDomainController()); });
    }
    askAll(L"after the end");
}

}  // namespace conformance
