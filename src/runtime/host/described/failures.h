#pragma once

/// The failures that a description plans, as they come due.

#include <string>
#include <vector>

#include "runtime/host/described/machine.h"

namespace described {

/// Counts calls. Every planned failure counts the calls of its operation with a matching subject.
class FailurePlan {
public:
    FailurePlan() = default;
    explicit FailurePlan(const std::vector<PlannedFailure>& failures);

    bool empty() const { return m_plans.empty(); }

    /// What becomes of this call; null when it proceeds. Where several failures are due, the first described
    /// one.
    const PlannedOutcome* next(const wchar_t* operation, const std::wstring& subject);

private:
    struct Plan {
        PlannedFailure failure;
        std::uint64_t calls = 0;
    };

    std::vector<Plan> m_plans;
};

/// Whether a failure planned for `planned` (folded) is meant by `subject`: the same, or its end behind a "\".
bool matchesSubject(const std::wstring& planned, const std::wstring& subject);

/// Throws an exception that is none of the program's own.
[[noreturn]] void throwForeign();

}  // namespace described
