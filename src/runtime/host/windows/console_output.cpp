#include "runtime/host/windows/console_output.h"
#include "runtime/host/utf.h"

#include <algorithm>
#include <cstring>

namespace host::windows {

ConsoleOutput::ConsoleOutput(HANDLE output, UINT codePage) noexcept
    : m_output(output), m_codePage(IsValidCodePage(codePage) ? codePage : CP_UTF8) {
    DWORD mode = 0;
    m_failed = output == nullptr || output == INVALID_HANDLE_VALUE;
    m_console = !m_failed && GetConsoleMode(output, &mode) != 0;
}

UINT ConsoleOutput::readersCodePage() noexcept {
    const UINT ofConsole = GetConsoleOutputCP();
    return ofConsole != 0 ? ofConsole : GetOEMCP();
}

bool ConsoleOutput::write(std::wstring_view text) noexcept {
    while (!m_failed && !text.empty()) {
        const std::wstring_view part = text.substr(0, wholeCharacters(text, unitsAtOnce));
        m_failed = m_console ? !writeToConsole(part) : !writeAsBytes(part);
        text.remove_prefix(part.size());
    }
    return !m_failed;
}

bool ConsoleOutput::flush() noexcept {
    if (!m_failed) m_failed = !hand(m_used);
    return !m_failed;
}

bool ConsoleOutput::writeToConsole(std::wstring_view part) noexcept {
    while (!part.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(part.size());
        if (!WriteConsoleW(m_output, part.data(), count, &written, nullptr) || written == 0) return false;
        part.remove_prefix(std::min<std::size_t>(written, part.size()));
    }
    return true;
}

bool ConsoleOutput::writeAsBytes(std::wstring_view part) noexcept {
    const auto units = static_cast<int>(part.size());
    const auto room = static_cast<int>(m_bytes.size() - m_used);
    const int size = WideCharToMultiByte(m_codePage, 0, part.data(), units, m_bytes.data() + m_used, room,
                                         nullptr, nullptr);
    if (size <= 0) return false;
    m_used += static_cast<std::size_t>(size);
    return m_used < blockSize || hand(blockSize);
}

bool ConsoleOutput::hand(std::size_t size) noexcept {
    for (std::size_t done = 0; done < size;) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(size - done);
        if (!WriteFile(m_output, m_bytes.data() + done, count, &written, nullptr) || written == 0)
            return false;
        done += written;
    }
    m_used -= size;
    std::memmove(m_bytes.data(), m_bytes.data() + size, m_used);
    return true;
}

std::size_t wholeCharacters(std::wstring_view text, std::size_t limit) noexcept {
    if (text.size() <= limit) return text.size();
    const bool tearsPair = isHighSurrogate(text[limit - 1]) && isLowSurrogate(text[limit]);
    return tearsPair && limit > 1 ? limit - 1 : limit;
}

}  // namespace host::windows
