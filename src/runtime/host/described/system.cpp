#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

namespace {

const description::SystemDescription& described() {
    return description::machine().system;
}

}  // namespace

Answer<SystemFacts> system() {
    const description::Cause& cause = described().systemCause;
    return cause.any ? description::answerOf<SystemFacts>(cause) : described().facts;
}

Answer<CodePageFacts> ansiCodePage() {
    const description::Cause& cause = described().codePageCause;
    return cause.any ? description::answerOf<CodePageFacts>(cause) : described().codePage;
}

}  // namespace host
