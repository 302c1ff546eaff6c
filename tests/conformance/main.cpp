/// Asks every operation of the runtime a fixed list of questions and writes the answers, a line each. What is
/// asked is the same everywhere; where the machine is the same, the answers must be so too.
///
///     kvx_conformance SET...    the sets of questions to ask, in this order

#include <cstdio>

#include "runtime/host/host.h"
#include "runtime/util/QVMain.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace {

struct QuestionSet {
    const wchar_t* name;
    void (*ask)();
};

constexpr QuestionSet sets[] = {
    {L"registry", conformance::askRegistry},
    {L"paths", conformance::askPaths},
    {L"quotafiles", conformance::askQuotaFiles},
    {L"system", conformance::askSystem},
    {L"device", conformance::askDevice},
    {L"configurator", conformance::askConfigurator},
    {L"cluster", conformance::askCluster},
    {L"volumes", conformance::askVolumes},
    {L"domain", conformance::askDomain},
    {L"localaccounts", conformance::askLocalAccounts},
    {L"domainaccounts", conformance::askDomainAccounts},
    {L"quotas", conformance::askQuotas},
    {L"errors", conformance::askErrors},
    {L"log", conformance::askLog},
    {L"commandline", conformance::askCommandLine},
    {L"quotatexts", conformance::askQuotaTexts},
    {L"calls", conformance::askCalls},
    {L"sids", conformance::askSids},
};

bool askSet(const CString& name) {
    for (const QuestionSet& set : sets) {
        if (!(name == set.name)) continue;
        set.ask();
        return true;
    }
    return false;
}

int askAll(int argc, wchar_t** argv) {
    conformance::ask(L"QVMain::mf_createInstance", {1}, [] {
        QVMain::mf_createInstance(1);
        return CString(L"made");
    });
    conformance::ask(L"QVMain::mf_startLogging", {conformance::logName}, [] {
        QVMain::mf_startLogging(conformance::logName);
        return CString(L"started");
    });
    int status = 0;
    for (int i = 1; i < argc; ++i) {
        if (askSet(argv[i])) continue;
        std::fprintf(stderr, "argument %d: no such set of questions\n", i);
        status = 2;
    }
    QVMain::mf_stopLogging();
    conformance::ask(L"QVMain::mf_deleteInstance", {}, [] {
        QVMain::mf_deleteInstance();
        return CString(L"done");
    });
    return status;
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv)
#else
int main(int argc, char** argv)
#endif
{
    host::Process process(argc, argv);
    if (!process.usable()) return host::Process::unusableExitStatus;
    return askAll(process.argumentCount(), process.arguments());
}
