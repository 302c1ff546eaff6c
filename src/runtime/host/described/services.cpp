#include "runtime/host/description/state.h"
#include "runtime/host/host.h"
#include "runtime/host/letter_case.h"

namespace host {

Answer<ServiceFacts> service(const std::wstring& name) {
    constexpr std::uint32_t noSuchService = 1060;
    const description::Machine& machine = description::machine();
    const auto found = machine.services.find(folded(name));
    if (found == machine.services.end()) return Answer<ServiceFacts>::missing();
    const description::Cause& cause = found->second.cause;
    if (cause.any) return description::answerOf<ServiceFacts>(cause, {noSuchService});
    ServiceFacts facts = found->second.facts;
    if (facts.imagePath.empty()) {
        facts.imagePath = machine.system.windowsDirectory + L"\\system32\\drivers\\" + name + L".sys";
    }
    return facts;
}

}  // namespace host
