#include "runtime/base/CString.h"

#include <algorithm>

#include "runtime/host/letter_case.h"

FormatArgument::FormatArgument(const CString& text) : m_kind(Kind::text), m_text(text) {}

CString::CString(const char* narrow) {
    for (; narrow != nullptr && *narrow != '\0'; ++narrow) {
        m_units += static_cast<wchar_t>(static_cast<unsigned char>(*narrow));
    }
}

int CString::CompareNoCase(const CString& other) const {
    return host::folded(m_units).compare(host::folded(other.m_units));
}

void CString::MakeLower() {
    std::transform(m_units.begin(), m_units.end(), m_units.begin(), host::lowerCase);
}

void CString::MakeUpper() {
    std::transform(m_units.begin(), m_units.end(), m_units.begin(), host::upperCase);
}
