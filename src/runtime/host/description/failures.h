#pragma once

/// The failures that a description plans, as they come due.

#include <string>
#include <vector>

#include "runtime/host/description/machine.h"

namespace description {

/// Counts calls. Every planned failure counts the calls of its operation with a matching subject.
class FailurePlan {
public:
    FailurePlan() = default;
    explicit FailurePlan(const std::vector<PlannedFailure>& failures);

    bool empty() const { return m_plans.empty(); }

    /// Whether failures of this operation are planned.
    bool has(const wchar_t* operation) const;

    /// What becomes of this call. Where several failures are due, the first described one.
    host::Verdict next(const wchar_t* operation, const std::wstring& subject);

private:
    struct Plan {
        PlannedFailure failure;
        std::uint64_t calls = 0;
    };

    std::vector<Plan> m_plans;
};

/// Whether a failure planned for `planned` (folded) is meant by `subject`: the same, or its end behind a "\".
bool matchesSubject(const std::wstring& planned, const std::wstring& subject);

}  // namespace description
