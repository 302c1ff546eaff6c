#pragma once

/// The text of a configuration file: UTF-8, with or without byte order mark, or UTF-16 with one; lines end in
/// LF, CR LF or CR.

#include <cstddef>
#include <string>
#include <string_view>

#include "runtime/base/CString.h"

struct ConfigLine {
    std::size_t number = 0;  ///< from 1
    std::wstring text;       ///< without line end
};

/// What is wrong with a line, and what was expected.
struct ConfigMistake {
    CString text;
};

/// Hands out the lines of a file's bytes, which must outlive it.
class ConfigLines {
public:
    explicit ConfigLines(std::string_view bytes);

    /// Reads the next line; false behind the last one. Throws `ConfigMistake` when the line is not
    /// well-formed text or holds a control character other than TAB; `line.number` is then that line's.
    bool next(ConfigLine& line);

private:
    enum class Encoding { utf8, utf16LittleEndian, utf16BigEndian };

    std::size_t unitSize() const { return m_encoding == Encoding::utf8 ? 1 : 2; }
    wchar_t unitAt(std::string_view bytes, std::size_t at) const;
    std::string_view takeLine();
    std::wstring decoded(std::string_view bytes) const;

    std::string_view m_rest;
    Encoding m_encoding = Encoding::utf8;
};

/// Text of a file as a mistake quotes it: in double quotes, shortened when it is long.
CString quotedText(std::wstring_view text);
