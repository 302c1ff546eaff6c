#include "runtime/host/described/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

const described::SystemDescription& description() {
    return described::machine().system;
}

}  // namespace

Answer<SystemFacts> system() {
    const described::Cause& cause = description().systemCause;
    return cause.any ? described::answerOf<SystemFacts>(cause) : description().facts;
}

Answer<std::vector<AdapterFacts>> adapters() {
    const described::Cause& cause = description().adaptersCause;
    return cause.any ? described::answerOf<std::vector<AdapterFacts>>(cause) : description().adapters;
}

Answer<CodePageFacts> ansiCodePage() {
    const described::Cause& cause = description().codePageCause;
    return cause.any ? described::answerOf<CodePageFacts>(cause) : description().codePage;
}

}  // namespace host
