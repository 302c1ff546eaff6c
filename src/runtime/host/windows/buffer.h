#pragma once

/// Buffers whose size only the system knows.

#include <algorithm>
#include <string>
#include <vector>

#include "runtime/host/os.h"

namespace host::windows {

/// How a call into a growing buffer ended: its error code, and the size that it gave back.
struct Filled {
    DWORD code = ERROR_SUCCESS;
    DWORD size = 0;
};

/// Calls `ask(memory, size)` with ever larger memory until it fits. `ask` returns an error code; `size` is
/// in: the room, out: what was used or is needed. "More data", "insufficient buffer" and "buffer overflow"
/// ask for a larger one. An answer that grows faster than its buffer is given up after a while, with the last
/// code.
template <class Unit, class Ask>
Filled fill(std::vector<Unit>& buffer, Ask ask) {
    constexpr int attempts = 20;
    constexpr std::size_t largest = std::size_t{256} << 20;
    if (buffer.empty()) buffer.resize(512);
    Filled filled;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        filled.size = static_cast<DWORD>(buffer.size());
        filled.code = ask(buffer.data(), filled.size);
        const bool tooSmall = filled.code == ERROR_MORE_DATA || filled.code == ERROR_INSUFFICIENT_BUFFER ||
                              filled.code == ERROR_BUFFER_OVERFLOW;
        if (!tooSmall) break;
        const std::size_t wanted = std::max<std::size_t>(filled.size, buffer.size() * 2);
        if (wanted > largest) break;
        buffer.assign(wanted, Unit{});
    }
    return filled;
}

/// A text, or why there is none.
struct FilledText {
    DWORD code = ERROR_SUCCESS;
    std::wstring text;
};

/// The text that `ask(units, size)` leaves, ended by its terminator; `ask` as for `fill`, in characters.
template <class Ask>
FilledText fillText(Ask ask) {
    std::vector<wchar_t> buffer(256);
    const Filled filled = fill(buffer, ask);
    if (filled.code != ERROR_SUCCESS) return {filled.code, {}};
    return {ERROR_SUCCESS, std::wstring(buffer.begin(), std::find(buffer.begin(), buffer.end(), L'\0'))};
}

/// The same for a call that returns the length of the text or, where the room is too small, the size that it
/// needs; 0 is a failure with the thread's last error, or "invalid name" where the call sets none.
template <class Ask>
FilledText fillTextByLength(Ask ask) {
    return fillText([&](wchar_t* units, DWORD& size) -> DWORD {
        SetLastError(ERROR_SUCCESS);
        const DWORD length = ask(units, size);
        if (length == 0) {
            const DWORD code = GetLastError();
            return code != ERROR_SUCCESS ? code : ERROR_INVALID_NAME;
        }
        if (length < size) return ERROR_SUCCESS;
        size = length + 1;
        return ERROR_INSUFFICIENT_BUFFER;
    });
}

}  // namespace host::windows
