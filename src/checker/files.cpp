#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVPath.h"
#include "runtime/base/QVString.h"

namespace {

/// The base HSM package; signature file, filter driver and plug-in of the backup-archive client follow.
constexpr const wchar_t* basePackage[] = {
    L"kvxclc.exe",       L"kvxfileinfo.exe", L"kvxfind.exe",          L"kvxgui.exe",
    L"kvxinfo.exe",      L"kvxtool.exe",     L"kvxsvc.exe",           L"kvxadmin.dll",
    L"kvxarchiver.dll",  L"kvxbase.dll",     L"kvxcluster.dll",       L"kvxstash.dll",
    L"kvxdevice.dll",    L"kvxguibase.dll",  L"kvxlangchs.dll",       L"kvxlangcht.dll",
    L"kvxlangcsy.dll",   L"kvxlangdeu.dll",  L"kvxlangenu.dll",       L"kvxlangesp.dll",
    L"kvxlangfra.dll",   L"kvxlanghun.dll",  L"kvxlangita.dll",       L"kvxlangjpn.dll",
    L"kvxlangkor.dll",   L"kvxlangplk.dll",  L"kvxlangptb.dll",       L"kvxlangrus.dll",
    L"kvxmigration.dll", L"kvxservice.dll",  L"kvxutil.dll",          L"qsxcontroller.dll",
    L"xerces-c_2_8.dll", L".\\kvx.opt",      L".\\config\\quota.cfg", L".\\jobs\\kvxglobal.cfg",
};

/// The monitor service package, which is optional as a whole.
constexpr const wchar_t* monitorPackage[] = {
    L"kvxmonctl.exe", L"kvxscanconv.exe", L"kvxmon.exe",
    L"kvxgui.dll",    L"kvxrsrcmod.dll",  L"kvxrsrcmodex.dll",
};

void append(QVArray<InstalledFile*, InstalledFile*>& list, const CString& name) {
    list.Add(nullptr);  // room first: an entry is never without an owner
    list.SetAt(list.GetSize() - 1, new InstalledFile{name});
}

constexpr const wchar_t* checkOfOneFile = L"QVInstallationChecker::mf_checkInstallationFile";

/// Where the file is looked for. A path that cannot be resolved is looked for as it was joined.
CString fullPathOf(const CString& installDir, const CString& fileName) {
    try {
        if (QVPath::mf_isAbsolutePathName(fileName)) return fileName;
        return QVPath::mf_getAbsolutePath(QVPath::mf_appendFile(installDir, fileName));
    } catch (QVErrno& error) {
        writeLog(
            QVLogData::LEVEL_E, checkOfOneFile,
            L"Could not resolve absolute path of file\r\n%sfile name = '%s'\r\n%sdirectory = '%s'\r\n%s%s",
            QVLog::TAB, fileName, QVLog::TAB, installDir, QVLog::TAB, error);
        return QVPath::mf_appendFile(installDir, fileName);
    }
}

}  // namespace

void QVInstallationChecker::mf_implListFiles(const CString& signatureFile, const CString& driverFile,
                                             const CString& pluginFile) {
    for (const wchar_t* name : basePackage)
        append(m_baseFiles, name);
    append(m_baseFiles, signatureFile);
    append(m_baseFiles, driverFile);
    append(m_baseFiles, pluginFile);
    for (const wchar_t* name : monitorPackage)
        append(m_monitorFiles, name);
}

void QVInstallationChecker::mf_checkInstallationFile(const CString& installDir, const CString& fileName,
                                                     int* exists, int* problem, CString& missingText,
                                                     CString& foundText, int* foundCount, int* missingCount) {
    try {
        *exists = QVPath::mf_exists(fullPathOf(installDir, fileName)) ? 1 : 0;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, checkOfOneFile,
                 L"Failure checking existence of file\r\n%sfile name = '%s'\r\n%s%s", QVLog::TAB, fileName,
                 QVLog::TAB, error);
        *exists = 0;
        *problem = 1;
        missingText += QVString(3320, fileName);
        ++*missingCount;
        return;
    }
    if (*exists) {
        writeLog(QVLogData::LEVEL_I, checkOfOneFile,
                 L"File existent:\r\n%sfile name = '%s'\r\n%sdirectory = '%s'", QVLog::TAB, fileName,
                 QVLog::TAB, installDir);
        foundText += QVString(3330, fileName);
        ++*foundCount;
    } else {
        *problem = 1;
        writeLog(QVLogData::LEVEL_E, checkOfOneFile,
                 L"File not existent:\r\n%sfile name = '%s'\r\n%sdirectory = '%s'", QVLog::TAB, fileName,
                 QVLog::TAB, installDir);
        missingText += QVString(3319, fileName);
        ++*missingCount;
    }
}

/// The texts of a package gather the found files before the missing ones; both in the order of the list.
QVInstallationChecker::CheckedPackage QVInstallationChecker::mf_implCheckPackage(
    OwnedArray<InstalledFile>& files) {
    CheckedPackage result;
    CString foundText;
    CString missingText;
    for (int i = 0; i < files.GetSize(); ++i) {
        InstalledFile& file = *files[i];
        mf_checkInstallationFile(m_installDir, file.name, &file.exists, &result.problem, missingText,
                                 foundText, &result.foundCount, &result.missingCount);
    }
    result.text =
        QVString(3291, padded(result.foundCount), padded(result.missingCount)) + foundText + missingText;
    return result;
}

const CString QVInstallationChecker::mf_checkInstallationFiles(int* foundCount, int* missingCount,
                                                               int* problem) {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_checkInstallationFiles";
    *foundCount = 0;
    *missingCount = 0;
    *problem = 0;
    if (!m_installDirFound) {
        // No flag: the report on the installation directory raises it for this case.
        *missingCount = m_baseFiles.GetSize();
        writeLog(QVLogData::LEVEL_E, originator, L"Unable to find installation dir");
        return QVString(3289);
    }
    const CheckedPackage base = mf_implCheckPackage(m_baseFiles);
    const CheckedPackage monitor = mf_implCheckPackage(m_monitorFiles);
    *foundCount = base.foundCount;
    *missingCount = base.missingCount;
    // A package of which nothing is there was not installed; one of which something is missing is damaged.
    const bool monitorDamaged = monitor.problem && monitor.foundCount > 0;
    *problem = base.problem || monitorDamaged ? 1 : 0;
    return L"  Base HSM package:\n" + base.text + L"\n  Monitor service package:\n" + monitor.text;
}
