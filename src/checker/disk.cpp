#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/util/QVStorage.h"

namespace {

const wchar_t* const originator = L"QVInstallationChecker::mf_getDisksInfos";

/// In capitals, so that every spelling of NTFS is one.
CString fileSystemName(const QVVolume& volume) {
    CString name;
    try {
        name = volume.mf_getFileSystemName();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure retrieving file system name\r\n%s%s\r\n%scontinuing...", QVLog::TAB, error,
                 QVLog::TAB);
        name = L"unknow file system";
    }
    name.MakeUpper();
    return name;
}

CString driveLetter(const QVVolume& volume) {
    try {
        return formatted(L"%c", volume.mf_getDriveLetter());
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Failure retrieving drive letter\r\n%s%s\r\n%scontinuing...", QVLog::TAB, error,
                 QVLog::TAB);
        return L"?";
    }
}

}  // namespace

const CString QVInstallationChecker::mf_getDisksInfos(int* problem) {
    *problem = 0;
    if (!QVStorage::mf_isInitialized()) {
        writeLog(QVLogData::LEVEL_E, originator, L"storage not intialized");
        *problem = 1;
        return QVString(3270);
    }
    CString listing;
    CString notNtfs;
    QVArray<QVVolume*> volumes;
    QVStorage::mf_getVolumes(volumes);
    for (int i = 0; i < volumes.GetSize(); ++i) {
        const QVVolume& volume = *volumes[i];
        const bool last = i + 1 == volumes.GetSize();
        listing += volume.mf_toString(L"    ");
        listing += last ? L"\n" : L"\n\n";
        const CString name = fileSystemName(volume);
        if (name.Compare(L"NTFS") == 0) continue;
        notNtfs += formatted(L"    %s (%s)\n", driveLetter(volume), name);
        *problem = 1;
    }
    listing += QVString(3322, notNtfs);
    return listing;
}
