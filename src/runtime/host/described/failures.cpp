#include "runtime/host/described/failures.h"

#include <stdexcept>

#include "runtime/host/described/fold.h"

namespace described {

namespace {

struct ForeignException : std::runtime_error {
    ForeignException() : std::runtime_error("foreign exception planned by the described machine") {}
};

}  // namespace

FailurePlan::FailurePlan(const std::vector<PlannedFailure>& failures) {
    m_plans.reserve(failures.size());
    for (const PlannedFailure& failure : failures)
        m_plans.push_back({failure, 0});
}

const PlannedOutcome* FailurePlan::next(const wchar_t* operation, const std::wstring& subject) {
    const PlannedOutcome* due = nullptr;
    for (Plan& plan : m_plans) {
        const PlannedFailure& failure = plan.failure;
        if (failure.operation != operation) continue;
        if (failure.subject && !matchesSubject(*failure.subject, subject)) continue;
        ++plan.calls;
        const bool isDue = plan.calls >= failure.first && plan.calls <= failure.last;
        if (isDue && due == nullptr) due = &failure.outcome;
    }
    return due;
}

bool matchesSubject(const std::wstring& planned, const std::wstring& subject) {
    const std::wstring whole = folded(subject);
    if (whole == planned) return true;
    return whole.size() > planned.size() && whole.ends_with(planned) &&
           whole[whole.size() - planned.size() - 1] == L'\\';
}

void throwForeign() {
    throw ForeignException();
}

}  // namespace described
