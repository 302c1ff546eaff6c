#pragma once

/// Descriptions of one fact a line, with aligned labels.

#include "runtime/base/CString.h"

class FactLines {
public:
    /// Every line is led by `prefix`; facts begin `labelWidth` columns behind it.
    FactLines(const CString& prefix, int labelWidth) : m_prefix(prefix), m_labelWidth(labelWidth) {}

    void add(const CString& label, const CString& fact) {
        if (!m_text.IsEmpty()) m_text += L"\r\n";
        CString padded = label;
        while (padded.GetLength() < m_labelWidth)
            padded += L' ';
        m_text = m_text + m_prefix + padded + inOneLine(fact);
    }

    /// The lines, separated by CR LF; none at the end.
    const CString& text() const { return m_text; }

private:
    /// A label on a disk, say, may hold anything; it must not make up lines or steer a terminal.
    static CString inOneLine(const CString& fact) {
        std::wstring units = fact.units();
        for (wchar_t& unit : units) {
            if (unit < L' ' || (unit >= 0x7F && unit < 0xA0)) unit = L' ';
        }
        return CString(units);
    }

    CString m_prefix;
    int m_labelWidth;
    CString m_text;
};
