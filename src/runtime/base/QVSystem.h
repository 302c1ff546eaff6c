#pragma once

/// The computer and its Windows.

#include "runtime/base/CString.h"

class QVSystem {
public:
    /// One fact a line, each led by `indent`, lines separated by CR LF, none at the end: computer name, domain or
    /// workgroup, Windows, version, processors, memory, start time, IP addresses by adapter. A fact that cannot be
    /// learnt is named with the reason; natural causes do not throw.
    static const CString mf_toString(const CString& indent);

    /// "Windows Server 2022 Standard 21H2, version 10.0.20348.2113 (x64)". Throws `QVErrno` when the system does not tell.
    static const CString mf_getSystemVersionString();

    /// Non-zero on Windows Server 2003 (version 5.2) or later. The program passes service pack 0; a higher one is asked
    /// of version 5.2 only, and no 5.2 that this program runs on is known to have less. Throws as above.
    static int mf_isAtLeastW2003(unsigned short servicePack);

    /// Non-zero on a 32-bit system. Throws as above.
    static int mf_is32Bit();

    /// "1252 (ANSI - Latin I)"; a text that says so when the system does not tell.
    static const CString mf_getDefaultAnsiCodepage();
};
