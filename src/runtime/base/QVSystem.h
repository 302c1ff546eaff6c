#pragma once

/// The computer and its Windows.

#include "runtime/base/CString.h"

class QVSystem {
public:
    /// One fact a line, each led by `indent`, lines separated by CR LF, none at the end: computer name,
    /// domain or workgroup, Windows, version, processors, memory, start time, IP addresses by adapter. A fact
    /// that cannot be learnt is named with the reason; natural causes do not throw.
    static const CString mf_toString(const CString& indent);

    /// "Windows Server 2022 Standard 21H2, version 10.0.20348.2113 (x64)"; a text that says so when the
    /// system does not tell.
    static const CString mf_getSystemVersionString();

    /// Non-zero on Windows Server 2003 (version 5.2) or later; 0 also when the system does not tell, with the
    /// reason in the trace log. The program passes service pack 0, which every system has.
    static int mf_isAtLeastW2003(unsigned short servicePack);

    /// Non-zero on a 32-bit system; 0 also when the system does not tell, with the reason in the trace log.
    static int mf_is32Bit();

    /// "1252 (ANSI - Latin I)"; a text that says so when the system does not tell.
    static const CString mf_getDefaultAnsiCodepage();
};
