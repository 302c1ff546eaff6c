#pragma once

/// Reads one line of a description from left to right.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/host/description/machine.h"
#include "runtime/host/numbers.h"
#include "runtime/host/sid_text.h"

namespace description {

/// Without blanks at its ends; those that come along when a page is copied are some.
std::wstring_view trimmed(std::wstring_view text);

using host::numberOf;
using host::sidOf;

/// An error code: a decimal number, or a hexadecimal one behind "0x".
std::optional<std::uint32_t> codeOf(std::wstring_view text);

/// "16 GB", "1.5 TB", "4096": in units of 1024.
std::optional<std::uint64_t> sizeOf(std::wstring_view number, std::wstring_view unit);

/// The cause that a code of Windows is: some refuse (`host::isRefusal`), others fail.
Cause causeOf(std::uint32_t code);

class Scanner {
public:
    explicit Scanner(std::wstring_view text) : m_rest(trimmed(text)) {}

    bool atEnd() const { return m_rest.empty(); }
    std::wstring_view rest() const { return m_rest; }

    /// The next word, up to a blank; empty at the end.
    std::wstring_view word();
    /// The word that `word` would give.
    std::wstring_view nextWord() const;
    /// Takes the next word when it is this one, ignoring case.
    bool take(std::wstring_view word);
    /// Takes a text in quotes when one is next. A doubled quote stands for one. Nothing, too, when it does
    /// not end.
    std::optional<std::wstring> quotedText();
    /// "refused", "refused CODE" or "error CODE"; takes nothing when none of them is next.
    std::optional<Cause> cause();
    /// "40 GB", "4096"; takes nothing when no size is next.
    std::optional<std::uint64_t> size();

private:
    void advance(std::size_t count) { m_rest = trimmed(m_rest.substr(count)); }

    std::wstring_view m_rest;
};

}  // namespace description
