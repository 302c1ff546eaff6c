#pragma once

/// Standard output of this computer.

#include <cstddef>
#include <string_view>

namespace described {

/// Bytes on their way to a file descriptor: to a terminal at once, to anything else in blocks. After a write
/// that could not be done nothing more is tried.
class OutputStream {
public:
    static constexpr std::size_t blockSize = 65536;

    explicit OutputStream(int descriptor) : m_descriptor(descriptor) {}

    bool write(std::wstring_view text) noexcept;
    bool flush() noexcept;

private:
    bool isTerminal() noexcept;

    int m_descriptor;
    int m_terminal = -1;  ///< -1: not asked yet
    bool m_failed = false;
    std::size_t m_used = 0;
    char m_block[blockSize];
};

}  // namespace described
