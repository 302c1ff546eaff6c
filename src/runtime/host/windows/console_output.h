#pragma once

/// Text on its way to a console, a file or a pipe.

#include <array>
#include <string_view>

#include "runtime/host/os.h"

namespace host::windows {

/// Writes text to one output for as long as that works. A console gets it at once and as it is; everything
/// else gets it in large blocks, in one code page. Never throws and takes no memory: it must work when there
/// is none left.
class ConsoleOutput {
public:
    /// `output` stays the caller's; null or invalid: every write fails. `codePage` is for what is no console.
    ConsoleOutput(HANDLE output, UINT codePage) noexcept;

    /// False from the first write on that could not be done; nothing is tried after it.
    bool write(std::wstring_view text) noexcept;
    bool flush() noexcept;

    /// The code page in which programs that read our output decode it.
    static UINT readersCodePage() noexcept;

private:
    static constexpr std::size_t blockSize = 65536;
    static constexpr std::size_t unitsAtOnce = 4096;
    /// No code page takes more for one unit, with its shifts to and fro.
    static constexpr std::size_t bytesOfUnit = 8;

    bool writeToConsole(std::wstring_view part) noexcept;
    bool writeAsBytes(std::wstring_view part) noexcept;
    bool hand(std::size_t size) noexcept;

    HANDLE m_output;
    UINT m_codePage;
    bool m_console = false;
    bool m_failed = false;
    std::size_t m_used = 0;
    std::array<char, blockSize + unitsAtOnce * bytesOfUnit> m_bytes;
};

/// How many of the first `limit` units can be written without tearing a surrogate pair apart. `text` is not
/// empty.
std::size_t wholeCharacters(std::wstring_view text, std::size_t limit) noexcept;

}  // namespace host::windows
