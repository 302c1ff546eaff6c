#pragma once

/// The registry: HKEY_LOCAL_MACHINE in its 64-bit view. Key paths and value names come without a leading hive
/// name. Every operation throws `QVErrno` when the registry cannot be asked; "not there" is an answer.

#include "runtime/base/CString.h"
#include "runtime/host/os.h"

class QVRegistry {
public:
    /// Non-zero when the key exists.
    static int mf_PathExists(const CString& keyPath, HKEY root);

    /// Non-zero when the value exists; 0 when the key or the value is missing.
    static int mf_exists(const CString& valueName, const CString& keyPath, HKEY root);

    /// Reads a 32-bit value (REG_DWORD). Throws also when it is missing or of another type; `value` is then
    /// unchanged.
    static void mf_getValue(const CString& valueName, unsigned long& value, const CString& keyPath,
                            HKEY root);

    /// Reads a string value (REG_SZ, REG_EXPAND_SZ expanded), up to its first NUL. Throws as above.
    static void mf_getValue(const CString& valueName, CString& value, const CString& keyPath, HKEY root);

    /// The client's registry key with "\" and `subKey` appended; without trailing "\" when `subKey` is empty.
    static const CString mf_getRegistryRoot(const CString& subKey);
};
