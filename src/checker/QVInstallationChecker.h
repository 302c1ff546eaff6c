#pragma once

/// The program's one object: every report is one of its methods.

#include <cstdio>

#include "checker/ReportLines.h"
#include "checker/installed_files.h"
#include "runtime/base/CString.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVUser.h"

class QVQuotaFile;
class QVSidQuota;

/// A report returns its text and sets its flag: 0, or 1 when it found something wrong. Every failure is
/// logged and turned into a line of the report; a `QVErrno` leaves a method only where its comment says so.
/// One source file holds one group of reports, named after its keyword.
class QVInstallationChecker {
public:
    /// Settles the installation paths and the lists of expected files, and removes an old report file.
    /// Failures are logged; none is thrown.
    QVInstallationChecker();
    /// Frees the lists and closes the report file.
    ~QVInstallationChecker();
    QVInstallationChecker(const QVInstallationChecker&) = delete;
    QVInstallationChecker& operator=(const QVInstallationChecker&) = delete;

    // --- The report file and the one way out for report text (report_file.cpp) ---

    /// Opens "check_installation.txt" in the current directory, without what it held before. Returns whether
    /// it is open now; failures are logged.
    bool mf_implOpenFile();
    bool mf_isFileOpen() const { return m_reportFile != nullptr; }

    /// Writes `text` as it stands to the report file, when it is open, and to the console; in the file a
    /// character above U+00FF becomes "?". Output that cannot be written ends nothing.
    void mf_implPrint(const CString& text);

    // --- Installation (installdir.cpp, files.cpp) ---

    const CString mf_getInstallDirReport(int* problem);

    /// `foundCount`, `missingCount` and `problem` describe the base package; the monitor package is optional.
    const CString mf_checkInstallationFiles(int* foundCount, int* missingCount, int* problem);
    /// Checks one file and appends its line to one of the texts; increments one of the counters; sets
    /// `*exists`.
    /// `*problem` is set to 1 when the file is not known to exist, and never reset.
    void mf_checkInstallationFile(const CString& installDir, const CString& fileName, int* exists,
                                  int* problem, CString& missingText, CString& foundText, int* foundCount,
                                  int* missingCount);

    // --- Versions (version.cpp), current user (user.cpp) ---

    const CString mf_getVersion(int* problem);
    const CString mf_getSpecificPelmora(int* problem);
    const CString mf_getDriverVersion(int* problem);
    /// May throw `QVErrno`.
    const CString mf_getWindowsVersion(int* problem);
    /// May throw `QVErrno`.
    const CString mf_getSystemInfo();
    const CString mf_getCurrentUser(int* notAdministrator);

    // --- Log levels, migration filters (loglevel.cpp, filter.cpp) ---

    /// The log levels of one program. `levelOut` may be null; it receives the mask when that could be read.
    const CString mf_getLogLevel(const CString& keyPath, const CString& valueName, const CString& programName,
                                 unsigned long* levelOut, int* problem);
    /// The same for this program's own levels.
    const CString mf_implGetOwnLogLevel(const CString& keyPath, const CString& valueName,
                                        const CString& programName, int* problem);
    const CString mf_getAttributeFileFilter(int* problem);

    // --- Domain, accounts (domain.cpp, listings.cpp) ---

    const CString mf_getDomainInfos(int& problem);

    /// These print by themselves, in errors-only mode only when something failed. A `QVErrno` of the
    /// membership test or of a list without a handler leaves them.
    void implDo_domusers(int errorsOnly);
    void implDo_locgroups(int errorsOnly);
    void implDo_domgroups(int errorsOnly);
    void implDo_locusergr(int errorsOnly);
    void implDo_domusergr(int errorsOnly);

    // --- Quotas (quota.cpp) ---

    /// Both return an error text, fill `lines`, and hand back the path of the quota file.
    const CString mf_getDefinedQuotas(int& problem, ReportLines& lines, CString& quotaFilePath);
    const CString mf_getAllQuota(int& problem, ReportLines& lines, CString& quotaFilePath);

    // --- Volumes (disk.cpp) ---

    /// May throw `QVErrno`.
    static const CString mf_getDisksInfos(int* problem);

private:
    /// The Windows directory without trailing "\". Throws `QVErrno`.
    CString mf_getWindowsDirectory();
    /// Settles `m_installDir` and `m_installDirFound`. Throws `QVErrno`.
    void mf_implReadInstallDir();
    void mf_implRemoveOldReport();
    CString mf_implDriverPath();
    CString mf_implPluginPath();
    void mf_implListFiles(const CString& signatureFile, const CString& driverFile, const CString& pluginFile);

    /// What the check of one package gave: its part of the report, its counts, and 1 when a file is not known
    /// to exist.
    struct CheckedPackage {
        CString text;
        int foundCount = 0;
        int missingCount = 0;
        int problem = 0;
    };
    CheckedPackage mf_implCheckPackage(OwnedArray<InstalledFile>& files);

    void mf_implAddUserQuotaEntry(int& problem, QVArray<QVUser*, QVUser*>& users, ReportLines& lines);
    CString mf_implParseQuotaFile(QVQuotaFile& file, int& problem);
    /// One line for each entry; `sidSubstitute` stands where a SID cannot be shown.
    void mf_implAddDefinedQuotas(const wchar_t* kind, const QVArray<QVSidQuota*>& entries,
                                 const wchar_t* sidFailureFormat, const CString& sidSubstitute, int& problem,
                                 ReportLines& lines);
    CString mf_implFormatQuotaLine(const CString& kind, const CString& fullName, const CString& sidString,
                                   const CString& quota);

    std::FILE* m_reportFile = nullptr;
    CString m_installDir;  ///< ends with "\" when not empty
    int m_installDirFound = 0;
    OwnedArray<InstalledFile> m_baseFiles;
    OwnedArray<InstalledFile> m_monitorFiles;
};
