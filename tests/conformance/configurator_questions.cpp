#include "runtime/archiver/QVConfigurator.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

void askConfigurator() {
    QVConfigurator* configurator = nullptr;
    ask(L"QVConfigurator::mf_createInstance", {}, [&] {
        configurator = QVConfigurator::mf_createInstance(QVBackend::QSX);
        return CString(configurator != nullptr ? L"made" : L"none");
    });
    if (configurator != nullptr) {
        ask(L"QVConfigurator::mf_isAPISupported", {},
            [&] { return shown(configurator->mf_isAPISupported()); });
        ask(L"QVConfigurator::mf_getRequiredAPIVersionMin", {},
            [&] { return shown(configurator->mf_getRequiredAPIVersionMin()); });
        ask(L"QVConfigurator::mf_getRequiredAPIVersionMax", {},
            [&] { return shown(configurator->mf_getRequiredAPIVersionMax()); });
    }
    for (QVConfigurator* instance : {configurator, static_cast<QVConfigurator*>(nullptr)}) {
        ask(L"QVConfigurator::mf_deleteInstance", {instance != nullptr ? L"what was made" : L"none"}, [&] {
            QVConfigurator::mf_deleteInstance(instance);
            return CString(L"done");
        });
    }
}

}  // namespace conformance
