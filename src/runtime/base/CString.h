#pragma once

/// The program's one string type.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "runtime/base/format.h"

/// A string of UTF-16 units, one in each `wchar_t` on every platform (also where `wchar_t` is wider). Text
/// becomes bytes only where it leaves the program. Never holds a NUL unit: a text pointer shows all of it.
class CString {
public:
    CString() = default;
    CString(const wchar_t* text) : m_units(text ? text : L"") {}  ///< a null pointer gives an empty string
    /// Takes the units up to the first NUL.
    CString(std::wstring units) : m_units(std::move(units)) {
        m_units.resize(std::char_traits<wchar_t>::length(m_units.c_str()));
    }
    /// From a narrow literal; bytes above 0x7F are taken as U+0080 to U+00FF.
    explicit CString(const char* narrow);

    CString& operator=(const QVString& text);

    operator const wchar_t*() const { return m_units.c_str(); }
    const std::wstring& units() const { return m_units; }

    int GetLength() const { return static_cast<int>(m_units.size()); }
    bool IsEmpty() const { return m_units.empty(); }
    /// The unit at `index`, counted from 0; the caller keeps `index` below `GetLength()`.
    wchar_t GetAt(int index) const { return m_units.at(static_cast<std::size_t>(index)); }
    void Empty() { m_units.clear(); }

    /// 0 when equal unit by unit; else the sign tells the order.
    int Compare(const CString& other) const { return m_units.compare(other.m_units); }
    /// As `Compare`, with the letters of `MakeLower` taken as equal in both cases.
    int CompareNoCase(const CString& other) const;

    /// Lower-cases, upper-cases in place, unit by unit as Windows does it for names (`host::lowerCase`).
    void MakeLower();
    void MakeUpper();

    /// Replaces the contents by the formatted text (`formatText`). The arguments may refer to this string.
    template <class... Arguments>
    void Format(const wchar_t* format, const Arguments&... arguments) {
        m_units = formatText(format, arguments...);
    }

    CString& operator+=(const CString& text) { return append(text.m_units); }
    CString& operator+=(const wchar_t* text) { return append(text ? text : L""); }
    CString& operator+=(const QVString& text);
    CString& operator+=(wchar_t unit) {
        m_units += unit;
        return *this;
    }

    friend CString operator+(CString left, const CString& right) { return std::move(left += right); }
    friend CString operator+(CString left, const wchar_t* right) { return std::move(left += right); }
    friend CString operator+(const wchar_t* left, const CString& right) { return CString(left) + right; }
    friend bool operator==(const CString& left, const CString& right) {
        return left.m_units == right.m_units;
    }
    friend bool operator==(const CString& left, const wchar_t* right) { return left.m_units == right; }

private:
    CString& append(std::wstring_view text) {
        m_units += text;
        return *this;
    }

    std::wstring m_units;
};

/// The formatted text as a string.
template <class... Arguments>
CString formatted(const wchar_t* format, const Arguments&... arguments) {
    return CString(formatText(format, arguments...));
}
