#pragma once

/// Descriptions of one fact a line, with aligned labels.

#include "runtime/base/CString.h"
#include "runtime/host/text.h"

class FactLines {
public:
    /// Every line is led by `prefix`; facts begin `labelWidth` columns behind it.
    FactLines(const CString& prefix, int labelWidth) : m_prefix(prefix), m_labelWidth(labelWidth) {}

    void add(const CString& label, const CString& fact) {
        if (!m_text.IsEmpty()) m_text += L"\r\n";
        CString padded = label;
        while (padded.GetLength() < m_labelWidth)
            padded += L' ';
        m_text = m_text + m_prefix + padded + CString(host::inOneLine(fact.units()));
    }

    /// The lines, separated by CR LF; none at the end.
    const CString& text() const { return m_text; }

private:
    CString m_prefix;
    int m_labelWidth;
    CString m_text;
};
