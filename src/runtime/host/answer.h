#pragma once

/// What the operating system answers: the thing; not there; refused; failed with a code. The four are never
/// blurred.

#include <cstdint>
#include <string>
#include <utility>

namespace host {

enum class Status { found, missing, refused, failed };

/// Why there is no answer.
struct Failure {
    std::uint32_t code = 0;  ///< the operating system's error code; 0 when it has none
    std::wstring text;       ///< what the host itself has to say about it, may be empty
};

/// The answer to one question. `value` is meaningful only when the status is `found`; `failure` only when it
/// is `refused` or `failed`.
template <class Value>
struct Answer {
    Status status = Status::missing;
    Value value{};
    Failure failure;

    Answer() = default;  ///< "not there"
    Answer(Value found) : status(Status::found), value(std::move(found)) {}

    static Answer missing() { return {}; }
    static Answer refused(std::uint32_t code, std::wstring text = {}) {
        return Answer(Status::refused, {code, std::move(text)});
    }
    static Answer failed(std::uint32_t code, std::wstring text = {}) {
        return Answer(Status::failed, {code, std::move(text)});
    }
    /// Passes on an answer to another question that has no value.
    template <class Other>
    static Answer without(const Answer<Other>& other) {
        return Answer(other.status, other.failure);
    }

    bool found() const { return status == Status::found; }
    bool isMissing() const { return status == Status::missing; }
    /// Neither the thing nor "not there": the question could not be answered.
    bool unanswered() const { return status == Status::refused || status == Status::failed; }

private:
    Answer(Status without, Failure why) : status(without), failure(std::move(why)) {}
    template <class>
    friend struct Answer;
};

/// For questions whose answer is only whether something was done.
struct Done {};

}  // namespace host
