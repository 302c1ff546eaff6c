#pragma once

#include "runtime/base/CString.h"
#include "runtime/host/facts.h"

/// A volume of this computer.
class QVVolume {
public:
    explicit QVVolume(const host::VolumeFacts& facts) : m_facts(facts) {}

    /// One fact a line, each led by `prefix`, separated by CR LF, none at the end: drive letter or mount
    /// folders, volume name, label, type, file system, size and free space. A fact that cannot be learnt is
    /// named with the reason; natural causes do not throw.
    const CString mf_toString(const CString& prefix) const;

    /// "NTFS", as the system spells it. Throws `QVErrno` when the volume does not tell (empty drive, locked,
    /// ...).
    const CString mf_getFileSystemName() const;

    /// In capitals. Throws `QVErrno` for a volume without a drive letter, or where it cannot be learnt.
    wchar_t mf_getDriveLetter() const;

private:
    /// Names the volume: "C:", its first mount folder, or its device.
    CString name() const;
    /// False for what stands in place of volumes that the system does not list.
    bool isListed() const;

    host::VolumeFacts m_facts;
};
