#include "runtime/host/described/console_output.h"

#include <unistd.h>

#include "runtime/host/described/native_files.h"
#include "runtime/host/utf.h"

namespace described {

bool OutputStream::isTerminal() noexcept {
    if (m_terminal < 0) m_terminal = isatty(m_descriptor);
    return m_terminal == 1;
}

bool OutputStream::write(std::wstring_view text) noexcept {
    constexpr std::size_t longestCharacter = 4;
    for (std::size_t at = 0; at < text.size();) {
        if (m_used + longestCharacter > blockSize && !flush()) return false;
        m_used += host::encodeUtf8(host::nextCharacter(text, at), m_block + m_used);
    }
    return isTerminal() ? flush() : !m_failed;
}

bool OutputStream::flush() noexcept {
    if (!m_failed && m_used != 0) m_failed = !writeAll(m_descriptor, {m_block, m_used});
    m_used = 0;
    return !m_failed;
}

}  // namespace described
