#include "runtime/host/described/fold.h"
#include "runtime/host/described/state.h"
#include "runtime/host/host.h"

namespace host {

Answer<ServiceFacts> service(const std::wstring& name) {
    constexpr std::uint32_t noSuchService = 1060;
    const described::Machine& machine = described::machine();
    const auto found = machine.services.find(described::folded(name));
    if (found == machine.services.end()) return Answer<ServiceFacts>::missing();
    const described::Cause& cause = found->second.cause;
    if (cause.any) return described::answerOf<ServiceFacts>(cause, {noSuchService});
    ServiceFacts facts = found->second.facts;
    if (facts.imagePath.empty()) {
        facts.imagePath = machine.system.windowsDirectory + L"\\system32\\drivers\\" + name + L".sys";
    }
    return facts;
}

}  // namespace host
