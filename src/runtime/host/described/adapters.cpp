#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

Answer<std::vector<AdapterFacts>> adapters() {
    const description::SystemDescription& system = description::machine().system;
    const description::Cause& cause = system.adaptersCause;
    return cause.any ? description::answerOf<std::vector<AdapterFacts>>(cause) : system.adapters;
}

}  // namespace host
