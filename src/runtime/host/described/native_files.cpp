#include "runtime/host/described/native_files.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

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

std::string nativeName(std::wstring_view path) {
    std::string name = host::toUtf8(path);
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

Descriptor::~Descriptor() {
    if (m_number >= 0) close(m_number);
}

Descriptor::Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

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

}  // namespace described
