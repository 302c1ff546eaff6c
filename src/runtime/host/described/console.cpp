#include "runtime/host/described/console.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "runtime/host/host.h"
#include "runtime/host/utf.h"

namespace described {

namespace {

/// Whether a write that was not done is worth another try: it was interrupted, or the descriptor does not
/// block and has room again.
bool mayRetry(int descriptor, int error) noexcept {
    if (error == EINTR) return true;
    if (error != EAGAIN) return false;
    pollfd waiting{descriptor, POLLOUT, 0};
    return poll(&waiting, 1, -1) > 0 || errno == EINTR;
}

}  // namespace

bool writeAll(int descriptor, std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || !mayRetry(descriptor, errno)) {
            return false;
        }
    }
    return true;
}

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

namespace host {

namespace {

described::OutputStream standardOutput(STDOUT_FILENO);

}  // namespace

bool writeConsole(std::wstring_view text) noexcept {
    return standardOutput.write(text);
}

bool flushConsole() noexcept {
    return standardOutput.flush();
}

}  // namespace host
