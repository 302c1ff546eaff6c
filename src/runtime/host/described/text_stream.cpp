#include <cstdarg>

#include "runtime/host/described/os_functions.h"

/// The stream output of the C run time of Windows: narrow characters in the C locale, line ends in text mode.

namespace {

constexpr wchar_t lastNarrow = 0xFF;

/// Collects bytes and hands them to a stream.
class NarrowWriter {
public:
    explicit NarrowWriter(std::FILE* stream) : m_stream(stream) {}

    /// Writes one character; false for one that has no narrow form.
    bool put(wchar_t unit) {
        if (unit < 0 || unit > lastNarrow) return false;
        if (unit == L'\n') putByte('\r');
        putByte(static_cast<char>(static_cast<unsigned char>(unit)));
        ++m_characters;
        return true;
    }

    bool put(const wchar_t* text) {
        for (; *text != L'\0'; ++text) {
            if (!put(*text)) return false;
        }
        return true;
    }

    bool flush() {
        if (m_used != 0 && std::fwrite(m_block, 1, m_used, m_stream) != m_used) m_good = false;
        m_used = 0;
        return m_good;
    }

    int characters() const { return m_characters; }

private:
    void putByte(char byte) {
        if (m_used == sizeof m_block) flush();
        m_block[m_used++] = byte;
    }

    std::FILE* m_stream;
    bool m_good = true;
    int m_characters = 0;
    std::size_t m_used = 0;
    char m_block[4096];
};

/// Whether every conversion of the format is one that is known here.
bool isKnownFormat(const wchar_t* format) {
    for (; *format != L'\0'; ++format) {
        if (*format != L'%') continue;
        ++format;
        if (*format != L's' && *format != L'%') return false;
    }
    return true;
}

int print(std::FILE* stream, const wchar_t* format, std::va_list arguments) {
    NarrowWriter writer(stream);
    bool good = true;
    for (; good && *format != L'\0'; ++format) {
        if (*format == L'%' && *++format == L's') {
            const wchar_t* text = va_arg(arguments, const wchar_t*);
            good = writer.put(text != nullptr ? text : L"(null)");
        } else {
            good = writer.put(*format);
        }
    }
    return writer.flush() && good ? writer.characters() : -1;
}

}  // namespace

int fwprintf_s(std::FILE* stream, const wchar_t* format, ...) {
    if (stream == nullptr || format == nullptr || !isKnownFormat(format)) return -1;
    std::va_list arguments;
    va_start(arguments, format);
    const int result = print(stream, format, arguments);
    va_end(arguments);
    return result;
}
