#include "runtime/base/QVVersion.h"
#include "runtime/device/QVDevice.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

void askForStart() {
    ask(L"QVDevice::mf_startDriver", {}, [] {
        QVDevice::mf_startDriver();
        return CString(L"started");
    });
}

void askForVersion(const wchar_t* when) {
    ask(L"QVDevice::mf_queryDriverVersion", {when}, [] { return shown(QVDevice::mf_queryDriverVersion()); });
}

void askForStop() {
    ask(L"QVDevice::mf_stopDriver", {}, [] {
        QVDevice::mf_stopDriver();
        return CString(L"stopped");
    });
}

}  // namespace

void askDevice() {
    askForVersion(L"before it was started");
    askForStop();
    askForStart();
    askForStart();
    askForVersion(L"while it is started");
    askForVersion(L"once more");
    askForStop();
    askForStop();
    askForVersion(L"after it was stopped");
}

}  // namespace conformance
