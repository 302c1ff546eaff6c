#pragma once

/// The one formatter: catalog texts, log formats and `CString::Format` all go through it.

#include <cstdint>
#include <string>

class CString;
class QVString;

/// One argument of a format: a text, a whole number or a single character. Refers to the caller's text and
/// lives no longer than the call.
class FormatArgument {
public:
    enum class Kind { text, number, character };

    FormatArgument(const wchar_t* text);  ///< a null pointer shows as "(null)"
    FormatArgument(const CString& text);
    FormatArgument(const std::wstring& text) =
        delete;  ///< would refer to a copy that is gone: pass `c_str()`
    FormatArgument(const QVString& text);
    FormatArgument(wchar_t character)
        : m_kind(Kind::character), m_number(static_cast<std::uint64_t>(character)) {}
    FormatArgument(int number) : m_kind(Kind::number), m_negative(number < 0), m_number(magnitude(number)) {}
    FormatArgument(unsigned int number) : m_kind(Kind::number), m_number(number) {}
    /// A 32-bit quantity on every platform, as it is on Windows.
    FormatArgument(unsigned long number)
        : m_kind(Kind::number), m_number(static_cast<std::uint32_t>(number)) {}
    FormatArgument(unsigned long long number) : m_kind(Kind::number), m_number(number) {}

    Kind kind() const { return m_kind; }
    const wchar_t* text() const { return m_text; }
    bool negative() const { return m_negative; }
    std::uint64_t number() const { return m_number; }  ///< the magnitude of a number, or the character's unit

private:
    static std::uint64_t magnitude(int number) {
        const auto wide = static_cast<std::int64_t>(number);
        return static_cast<std::uint64_t>(wide < 0 ? -wide : wide);
    }

    Kind m_kind;
    bool m_negative = false;
    std::uint64_t m_number = 0;
    const wchar_t* m_text = L"";
};

/// The finished text of `format` with `count` arguments taken in order. "%s" takes wide text; "%%" is a
/// percent sign. An argument is shown by its own kind even where the conversion asks for another. A
/// conversion without an argument, or one that the program does not know, is copied as it stands. There is no
/// length cap.
std::wstring formatWith(const wchar_t* format, const FormatArgument* arguments, std::size_t count);

/// The same with the arguments given one by one.
template <class... Arguments>
std::wstring formatText(const wchar_t* format, const Arguments&... arguments) {
    if constexpr (sizeof...(Arguments) == 0) {
        return formatWith(format, nullptr, 0);
    } else {
        const FormatArgument list[] = {FormatArgument(arguments)...};
        return formatWith(format, list, sizeof...(Arguments));
    }
}

/// One argument as `conversion` letters would show it without width or flags: text as it is, a number in
/// decimal, a character as itself.
std::wstring plainText(const FormatArgument& argument);
