#pragma once

/// Reads one line of a description from left to right.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/host/description/machine.h"

namespace description {

std::wstring_view trimmed(std::wstring_view text);

/// A decimal number, nothing else; nothing when it is none or above `maximum`.
std::optional<std::uint64_t> numberOf(std::wstring_view text,
                                      std::uint64_t maximum = std::numeric_limits<std::uint64_t>::max());

/// An error code: a decimal number, or a hexadecimal one behind "0x".
std::optional<std::uint32_t> codeOf(std::wstring_view text);

/// "16 GB", "1.5 TB", "4096": in units of 1024.
std::optional<std::uint64_t> sizeOf(std::wstring_view number, std::wstring_view unit);

/// "S-1-5-32-544".
std::optional<host::Sid> sidOf(std::wstring_view text);
std::wstring sidText(const host::Sid& sid);

/// "6.1.5.2": one to four numbers of at most `maximum`; those left out are 0.
bool readVersion(std::wstring_view text, std::uint64_t maximum, std::uint32_t (&numbers)[4]);

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
