#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/admin/QVQuotaConfiguration.h"
#include "runtime/admin/QVQuotaFile.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVMain.h"
#include "runtime/util/QVUser.h"

namespace {

const wchar_t* const definedQuotas = L"QVInstallationChecker::mf_getDefinedQuotas";
const wchar_t* const allQuota = L"QVInstallationChecker::mf_getAllQuota";
const wchar_t* const userQuotaEntry = L"QVInstallationChecker::mf_implAddUserQuotaEntry";

/// The entry's SID string, or `substitute` where it cannot be shown; the entry itself is never dropped.
CString sidString(const QVSidQuota& entry, const wchar_t* failureFormat, const CString& substitute,
                  int& problem) {
    try {
        return entry.mf_getSid().mf_getSidString();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, definedQuotas, failureFormat, entry.mf_getSid().mf_getFullName(),
                 QVLog::TAB, error, QVLog::TAB);
        problem = 1;
        return substitute;
    }
}

/// What "allquota" gathers before it lists anything.
struct AllQuota {
    int& problem;
    ReportLines& lines;
    CString result;
    QVErrnoData failure;
    OwnedArray<QVUser> localUsers;
    OwnedArray<QVUser> domainUsers;
};

bool startDomainController(AllQuota& report) {
    try {
        QVMain::mf_startDomainController(0);
        return true;
    } catch (QVErrno& error) {
        report.problem = 1;
        report.result += QVString(3277, error.mf_toString());
        report.lines.add(report.result);
        writeLog(QVLogData::LEVEL_E, allQuota, L"Failure creating instance of DomainController\r\n%s%s",
                 QVLog::TAB, error);
        return false;
    }
}

bool prepareQuotas(AllQuota& report) {
    try {
        QVQuotaConfiguration::mf_createInstance();
        return true;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, allQuota, L"Error preparing quotas\r\n%s%s", QVLog::TAB, error);
        report.result = QVString(3461, error.mf_toString());
        report.failure = error.mf_getData();
        return false;
    }
}

/// A list that merely failed yields no entries: only an exception ends the report here.
bool listLocalUsers(AllQuota& report) {
    try {
        QVUser::mf_getComputerUserList(report.localUsers);
        return true;
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, allQuota, L"Failure retrieving user list\n%s%s", QVLog::TAB, error);
        report.result = QVString(3495, error.mf_toString());
        report.failure = error.mf_getData();
    } catch (...) {
        writeLog(QVLogData::LEVEL_E, allQuota, L"Unknown failure retrieving user list");
        report.result = QVString(3496);
        report.failure = QVErrnoData(QVErrno::_E_::Unknown);
    }
    return false;
}

void stopDomainController(AllQuota& report) {
    try {
        QVMain::mf_stopDomainController();
    } catch (QVErrno& error) {
        report.problem = 1;
        report.result += QVString(3280, error.mf_toString());
        writeLog(QVLogData::LEVEL_E, allQuota, L"Failure deleting instance of DomainController\r\n%s%s",
                 QVLog::TAB, error);
    }
}

/// The quota of one user. Only the last step lets a `QVErrno` out.
CString userEntry(const QVUser& user, int& problem) {
    CString entry;
    QVQuota* quota = nullptr;
    CString explanation;
    QVQuotaConfiguration::QuotaType type{};
    try {
        type = QVQuotaConfiguration::mf_getQuota(user.mf_getSid(), quota, explanation);
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, userQuotaEntry,
                 L"Error retrieving quota for user '%s'\r\n%s%s\r\n%scontinuing ... ", user.mf_getFullName(),
                 QVLog::TAB, error, QVLog::TAB);
        problem = 1;
        entry += QVString(3497, user.mf_getFullName(), error.mf_toString());
        return entry;
    }
    CString sid;
    try {
        sid = user.mf_getSidString();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, userQuotaEntry,
                 L"Error retrieving SID representation for user '%s'\r\n%s%s\r\n%scontinuing ... ",
                 user.mf_getFullName(), QVLog::TAB, error, QVLog::TAB);
        problem = 1;
        return QVString(3182, user.mf_getFullName(), error.mf_toString());
    }
    const CString fullName = user.mf_getFullName();
    const CString typeText = QVQuotaConfiguration::mf_getQuotaTypeString(type, 1);
    entry += QVString(3622, fullName, sid, typeText);
    const int typeWithExplanation = 2;
    if (type == typeWithExplanation) entry += formatted(L"        (%s)\n", explanation);
    entry += formatted(L"        %s\n", quota->mf_toString(1));
    return entry;
}

}  // namespace

const CString QVInstallationChecker::mf_getDefinedQuotas(int& problem, ReportLines& lines,
                                                         CString& quotaFilePath) {
    problem = 0;
    quotaFilePath = QVString(3344);
    quotaFilePath = QVQuotaFile::mf_getConfigFileName();
    QVQuotaFile file(quotaFilePath);
    const CString parseResult = mf_implParseQuotaFile(file, problem);
    if (problem) {
        writeLog(QVLogData::LEVEL_E, definedQuotas, L"Error while retrieving quotas");
        return parseResult;
    }

    mf_implAddDefinedQuotas(L"user", file.mf_getUserQuotas(),
                            L"Error retrieving SID rapresentation for user '%s'\r\n%s%s\r\n%scontinuing ... ",
                            L"<error>", problem, lines);
    lines.add(L"");
    // Unlike a user's, a group's missing SID is shown by a message of the catalog.
    mf_implAddDefinedQuotas(
        L"group", file.mf_getGroupQuotas(),
        L"Error retrieving SID rapresentation for group '%s'\r\n%s%s\r\n%scontinuing ... ", QVString(3268),
        problem, lines);
    lines.add(L"");
    const QVQuota* defaultQuota = file.mf_getDefaultQuota();
    lines.add(QVString(3256, defaultQuota == nullptr ? CString(L"NULL") : defaultQuota->mf_toString(1)));
    return {};
}

void QVInstallationChecker::mf_implAddDefinedQuotas(const wchar_t* kind, const QVArray<QVSidQuota*>& entries,
                                                    const wchar_t* sidFailureFormat,
                                                    const CString& sidSubstitute, int& problem,
                                                    ReportLines& lines) {
    for (int i = 0; i < entries.GetSize(); ++i) {
        const QVSidQuota& entry = *entries[i];
        const CString sid = sidString(entry, sidFailureFormat, sidSubstitute, problem);
        const CString fullName = entry.mf_getSid().mf_getFullName();
        const CString quota = entry.mf_getQuota().mf_toString(1);
        lines.add(mf_implFormatQuotaLine(kind, fullName, sid, quota));
    }
}

CString QVInstallationChecker::mf_implFormatQuotaLine(const CString& kind, const CString& fullName,
                                                      const CString& sidString, const CString& quota) {
    return QVString(3333, kind, kind, fullName, sidString, quota);
}

CString QVInstallationChecker::mf_implParseQuotaFile(QVQuotaFile& file, int& problem) {
    problem = 0;
    CString result;
    QVErrnoData failure;
    try {
        file.mf_parse();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, definedQuotas,
                 L"Failure parsing quota file\r\n%sfile path = '%s'\r\n%s%s", QVLog::TAB, file.mf_getPath(),
                 QVLog::TAB, error);
        result = QVString(3327, error.mf_toString());
        failure = error.mf_getData();
    } catch (...) {
        writeLog(QVLogData::LEVEL_E, definedQuotas,
                 L"Unknow error occured while reading/parsing quota file\r\n%sfile path = '%s'", QVLog::TAB,
                 file.mf_getPath());
        result = QVString(3343);
        failure = QVErrnoData(QVErrno::_E_::Unknown);
    }
    if (failure.mf_getValue() != 0) {
        file.mf_clear();
        problem = 1;
    }
    return result;
}

const CString QVInstallationChecker::mf_getAllQuota(int& problem, ReportLines& lines,
                                                    CString& quotaFilePath) {
    problem = 0;
    quotaFilePath = QVQuotaFile::mf_getConfigFileName();
    AllQuota report{problem, lines, {}, {}, {}, {}};
    if (startDomainController(report) && prepareQuotas(report) && listLocalUsers(report)) {
        lines.add(QVString(3353));
        mf_implAddUserQuotaEntry(problem, report.localUsers, lines);
        lines.add(QVString(3265));
        if (!QVDomainController::mf_isJoined()) {
            lines.add(QVString(3323));
        } else if (!QVUser::mf_getDomainUserList(report.domainUsers)) {
            problem = 1;
            report.result += QVString(3274);
            lines.add(report.result);
            writeLog(QVLogData::LEVEL_E, allQuota, L"Error retrieving user list from domain controller");
        } else {
            mf_implAddUserQuotaEntry(problem, report.domainUsers, lines);
        }
    }
    stopDomainController(report);
    QVQuotaConfiguration::mf_deleteInstance();
    deleteElements(report.localUsers);
    deleteElements(report.domainUsers);
    if (report.failure.mf_getValue() != 0) problem = 1;
    writeLog(QVLogData::LEVEL_D, allQuota, L"Prepared list with all users");
    return report.result;
}

void QVInstallationChecker::mf_implAddUserQuotaEntry(int& problem, QVArray<QVUser*, QVUser*>& users,
                                                     ReportLines& lines) {
    for (int i = 0; i < users.GetSize(); ++i)
        lines.add(userEntry(*users[i], problem));
}
