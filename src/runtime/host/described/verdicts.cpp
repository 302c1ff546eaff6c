#include "runtime/host/described/state.h"
#include "runtime/host/host.h"

namespace host {

bool verdictsArePlanned() {
    return !described::failurePlan().empty();
}

Verdict verdictOn(const wchar_t* operation, const std::wstring& subject) {
    using Kind = described::PlannedOutcome::Kind;
    Verdict verdict;
    const described::PlannedOutcome* outcome = described::failurePlan().next(operation, subject);
    if (outcome == nullptr) return verdict;
    switch (outcome->kind) {
        case Kind::answerZero: verdict.kind = Verdict::Kind::answerZero; break;
        case Kind::foreign: verdict.kind = Verdict::Kind::throwForeign; break;
        case Kind::grows: break;
        case Kind::error:
            verdict = {Verdict::Kind::fail, outcome->category, outcome->code, outcome->text};
            break;
    }
    return verdict;
}

}  // namespace host
