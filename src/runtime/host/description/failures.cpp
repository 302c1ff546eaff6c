#include "runtime/host/description/failures.h"

#include <algorithm>

#include "runtime/host/letter_case.h"

namespace description {

FailurePlan::FailurePlan(const std::vector<PlannedFailure>& failures) {
    m_plans.reserve(failures.size());
    for (const PlannedFailure& failure : failures)
        m_plans.push_back({failure, 0});
}

bool FailurePlan::has(const wchar_t* operation) const {
    return std::any_of(m_plans.begin(), m_plans.end(),
                       [&](const Plan& plan) { return plan.failure.operation == operation; });
}

host::Verdict FailurePlan::next(const wchar_t* operation, const std::wstring& subject) {
    const host::Verdict* due = nullptr;
    for (Plan& plan : m_plans) {
        const PlannedFailure& failure = plan.failure;
        if (failure.operation != operation) continue;
        if (failure.subject && !matchesSubject(*failure.subject, subject)) continue;
        ++plan.calls;
        const bool isDue = plan.calls >= failure.first && plan.calls <= failure.last;
        if (isDue && due == nullptr) due = &failure.outcome;
    }
    return due != nullptr ? *due : host::Verdict();
}

bool matchesSubject(const std::wstring& planned, const std::wstring& subject) {
    const std::wstring whole = host::folded(subject);
    if (whole == planned) return true;
    return whole.size() > planned.size() && whole.ends_with(planned) &&
           whole[whole.size() - planned.size() - 1] == L'\\';
}

}  // namespace description
