#include "runtime/cluster/QVCluster.h"
#include "runtime/cluster/QVClusterMain.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

void askDone(const wchar_t* operation, void (*question)()) {
    ask(operation, {}, [&] {
        question();
        return CString(L"done");
    });
}

void stopAll() {
    ask(L"QVClusterMain::mf_stopCluster", {}, [] { return shown(QVClusterMain::mf_stopCluster()); });
    ask(L"QVClusterMain::mf_stopClusterStorage", {},
        [] { return shown(QVClusterMain::mf_stopClusterStorage()); });
    askDone(L"QVClusterMain::mf_deleteInstance", QVClusterMain::mf_deleteInstance);
}

}  // namespace

void askCluster() {
    stopAll();
    askDone(L"QVClusterMain::mf_createInstance", QVClusterMain::mf_createInstance);
    askDone(L"QVClusterMain::mf_startClusterStorage", [] { QVClusterMain::mf_startClusterStorage(0); });
    askDone(L"QVClusterMain::mf_startCluster", [] { QVClusterMain::mf_startCluster(0); });
    askLines(L"QVCluster::mf_toString", L"    ", [] { return QVCluster::mf_toString(L"    "); });
    askLines(L"QVCluster::mf_toString", L"%s ", [] { return QVCluster::mf_toString(L"%s "); });
    stopAll();
}

}  // namespace conformance
