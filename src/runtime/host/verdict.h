#pragma once

/// What a described machine has in store for a call that it plans to fail. A real machine has nothing.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace host {

struct Verdict {
    enum class Kind { proceed, answerZero, fail, throwForeign, grow };
    Kind kind = Kind::proceed;
    std::uint32_t category = 0;    ///< Kind::fail: the error value of the category, 1 to 6
    std::uint32_t code = 0;        ///< Kind::fail: system error code or 0
    std::wstring text;             ///< Kind::fail: the originator message, may be empty
    std::uint32_t characters = 0;  ///< Kind::grow: characters needed from then on, with terminator
};

/// An exception that is none of the program's own: what `Kind::throwForeign` throws.
struct ForeignException : std::runtime_error {
    ForeignException() : std::runtime_error("foreign exception planned by the described machine") {}
};

}  // namespace host
