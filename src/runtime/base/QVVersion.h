#pragma once

/// Packed version numbers, as the filter driver reports its own: one byte for each of four fields.

#include "runtime/base/CString.h"
#include "runtime/host/numbers.h"

class QVVersion {
public:
    /// 0x06010502 gives "6.1.5.2". May throw `QVErrno`.
    static const CString mf_VersionNumberToVersionString(unsigned long number);

    /// The packed form of `version`. Throws `QVErrno` that names the version when a field is above 255.
    static unsigned long pack(const host::DottedVersion& version);
};
