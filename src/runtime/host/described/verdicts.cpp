#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace host {

bool verdictsArePlanned() {
    return !description::failurePlan().empty();
}

bool verdictsArePlanned(const wchar_t* operation) {
    return description::failurePlan().has(operation);
}

Verdict verdictOn(const wchar_t* operation, const std::wstring& subject) {
    return description::failurePlan().next(operation, subject);
}

}  // namespace host
