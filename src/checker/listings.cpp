#include <optional>

#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVGroup.h"
#include "runtime/util/QVMain.h"
#include "runtime/util/QVUser.h"

namespace {

bool isShown(int errorsOnly, bool problem) {
    return errorsOnly == 0 || problem;
}

/// Prints the heading as one piece, then every account on a line of its own.
template <class Account>
void printAccounts(QVInstallationChecker& checker, const CString& heading,
                   const OwnedArray<Account>& accounts) {
    checker.mf_implPrint(heading);
    for (int i = 0; i < accounts.GetSize(); ++i) {
        checker.mf_implPrint(L"    " + accounts[i]->mf_getFullName() + L"\n");
    }
}

void printLines(QVInstallationChecker& checker, const ReportLines& lines) {
    for (int i = 0; i < lines.size(); ++i)
        checker.mf_implPrint(lines.line(i));
}

/// Why the domain controller's instance cannot be made; nothing when it was.
std::optional<QVErrno> startDomainController() {
    try {
        QVMain::mf_startDomainController(0);
        return std::nullopt;
    } catch (QVErrno& error) {
        return error;
    }
}

/// The output has gone out already: a failure here is logged, no more.
void stopDomainController(const wchar_t* originator, const wchar_t* format) {
    try {
        QVMain::mf_stopDomainController();
    } catch (QVErrno& error) {
        writeLog(QVLogData::LEVEL_E, originator, format, QVLog::TAB, error);
    }
}

/// Adds a local user's groups to `lines`. Returns whether they could be listed.
bool addLocalGroups(QVUser& user, ReportLines& lines, const wchar_t* originator) {
    const CString userName = user.mf_getFullName();
    lines.add(QVString(3351, userName));
    OwnedArray<QVGroup> groups;
    if (!user.mf_getComputerGroupList(groups)) {
        lines.add(QVString(3490));
        lines.add(L"\n");
        writeLog(QVLogData::LEVEL_E, originator, L"Error retrieving groups list for user '%s'", userName);
        return false;
    }
    lines.add(QVString(3285));
    for (int i = 0; i < groups.GetSize(); ++i) {
        lines.add(formatted(L"        %s\n", groups[i]->mf_getFullName()));
    }
    lines.add(L"\n");
    return true;
}

/// Fills `users` with the domain's users, with none outside of a domain. Returns whether they could be
/// listed.
bool listDomainUsers(OwnedArray<QVUser>& users, ReportLines& lines, const wchar_t* originator) {
    if (!QVDomainController::mf_isJoined()) {
        lines.appendToRunningText(QVString(3044));
        lines.addRunningText();
        return true;
    }
    if (QVUser::mf_getDomainUserList(users)) return true;
    lines.add(QVString(3494));
    writeLog(QVLogData::LEVEL_E, originator, L"Failure while retrieving domain users list");
    return false;
}

/// As `addLocalGroups`, for a domain user and the domain-local groups. The lines of the groups repeat all of
/// the running text, which goes on from user to user.
bool addDomainLocalGroups(QVUser& user, ReportLines& lines, const wchar_t* originator) {
    const CString userName = user.mf_getFullName();
    writeLog(QVLogData::LEVEL_D, originator, L"Doing user: '%s'", userName);
    lines.add(QVString(3351, userName));
    lines.add(QVString(3285));
    OwnedArray<QVGroup> groups;
    if (!user.mf_getDomainLocalGroupList(groups)) {
        writeLog(QVLogData::LEVEL_D, originator, L"Failure retrieving domain local group list for user: '%s'",
                 userName);
        lines.add(QVString(3279));
        return false;
    }
    writeLog(QVLogData::LEVEL_D, originator, L"Retrieved domain local group list for user: '%s'", userName);
    for (int i = 0; i < groups.GetSize(); ++i) {
        const CString groupName = groups[i]->mf_getFullName();
        lines.appendToRunningText(formatted(L"        %s", groupName));
        lines.addRunningText();
        writeLog(QVLogData::LEVEL_D, originator, L"User '%s', Iteration # %d\r\n%sGroup name = '%s'",
                 userName, i, QVLog::TAB, groupName);
    }
    lines.add(L"\n");
    return true;
}

}  // namespace

void QVInstallationChecker::implDo_domusers(int errorsOnly) {
    static const wchar_t* const originator = L"QVInstallationChecker::implDo_domusers";
    bool problem = false;
    CString heading = QVString(3263);
    OwnedArray<QVUser> users;
    if (const auto error = startDomainController()) {
        problem = true;
        heading += QVString(3259, error->mf_toString());
        writeLog(QVLogData::LEVEL_E, originator, L"Failure instantiating DomainController\r\n%s%s",
                 QVLog::TAB, *error);
    } else if (!QVDomainController::mf_isJoined()) {
        heading += QVString(3044);
    } else if (!QVUser::mf_getDomainUserList(users)) {
        problem = true;
        heading += QVString(3492);
        writeLog(QVLogData::LEVEL_E, originator, L"Error retrieving domain controller user list");
    }
    if (isShown(errorsOnly, problem)) printAccounts(*this, heading, users);
    deleteElements(users);
    stopDomainController(originator, L"Failure deleting DomainController instance\r\n%s%s");
}

/// Asks this computer only, yet ends the domain controller's instance.
void QVInstallationChecker::implDo_locgroups(int errorsOnly) {
    static const wchar_t* const originator = L"QVInstallationChecker::implDo_locgroups";
    bool problem = false;
    CString heading = QVString(3296);
    OwnedArray<QVGroup> groups;
    if (!QVGroup::mf_getComputerGroupList(groups)) {
        problem = true;
        heading += QVString(3492);
        writeLog(QVLogData::LEVEL_E, originator, L"Error retrieving list of computer local groups");
    }
    if (isShown(errorsOnly, problem)) printAccounts(*this, heading, groups);
    deleteElements(groups);
    stopDomainController(originator, L"Failure deleting DomainController instance\r\n%s%s");
}

void QVInstallationChecker::implDo_domgroups(int errorsOnly) {
    static const wchar_t* const originator = L"QVInstallationChecker::implDo_domgroups";
    bool problem = false;
    CString heading = QVString(3262);
    OwnedArray<QVGroup> groups;
    if (const auto error = startDomainController()) {
        problem = true;
        heading += QVString(3277, error->mf_toString());
        writeLog(QVLogData::LEVEL_E, originator, L"Failure instantiating DomainController\r\n%s%s",
                 QVLog::TAB, *error);
    } else if (!QVDomainController::mf_isJoined()) {
        heading += QVString(3044);
    } else {
        try {
            if (!QVGroup::mf_getDomainLocalGroupList(groups)) {
                problem = true;
                heading += QVString(3492);
                writeLog(QVLogData::LEVEL_E, originator, L"Error retrieving list of the domain local groups");
            }
        } catch (QVErrno& failure) {
            problem = true;
            heading += QVString(3493, failure.mf_toString());
            writeLog(QVLogData::LEVEL_E, originator,
                     L"Failure retrieving list of the domain local groups\r\n%s%s", QVLog::TAB, failure);
        }
    }
    if (isShown(errorsOnly, problem)) printAccounts(*this, heading, groups);
    deleteElements(groups);
    stopDomainController(originator, L"Failure while deleting DomainController instance.\r\n%s%s");
}

void QVInstallationChecker::implDo_locusergr(int errorsOnly) {
    static const wchar_t* const originator = L"QVInstallationChecker::implDo_locusergr";
    bool problem = false;
    ReportLines lines;
    lines.add(QVString(3264));
    OwnedArray<QVUser> users;
    if (!QVUser::mf_getComputerUserList(users)) {
        problem = true;
        lines.add(QVString(3494));
        writeLog(QVLogData::LEVEL_E, originator, L"Failure while retrieving users list");
        deleteElements(users);  // a part is never walked as the whole
    }
    for (int i = 0; i < users.GetSize(); ++i) {
        try {
            if (!addLocalGroups(*users[i], lines, originator)) problem = true;
        } catch (QVErrno& error) {
            problem = true;
            lines.add(QVString(3491, error.mf_toString()));
            writeLog(QVLogData::LEVEL_E, originator, L"Failure retrieving groups list for user '%s'\r\n%s%s",
                     users[i]->fullName(), QVLog::TAB, error);
        }
    }
    if (isShown(errorsOnly, problem)) printLines(*this, lines);
    deleteElements(users);
}

void QVInstallationChecker::implDo_domusergr(int errorsOnly) {
    static const wchar_t* const originator = L"QVInstallationChecker::implDo_domusergr";
    bool problem = false;
    ReportLines lines;
    lines.add(QVString(3264));
    OwnedArray<QVUser> users;
    if (const auto error = startDomainController()) {
        problem = true;
        lines.add(QVString(3277, error->mf_toString()));
        // "occured" here, "occurred" when it is deleted.
        writeLog(QVLogData::LEVEL_E, originator,
                 L"Error occured creating instance of DomainController\r\n%s%s", QVLog::TAB, *error);
    } else if (!listDomainUsers(users, lines, originator)) {
        problem = true;
    } else {
        writeLog(QVLogData::LEVEL_D, originator, L"Successfully retrieved domain user list with %d entries",
                 users.GetSize());
        for (int i = 0; i < users.GetSize(); ++i) {
            if (!addDomainLocalGroups(*users[i], lines, originator)) problem = true;
        }
    }
    if (isShown(errorsOnly, problem)) printLines(*this, lines);
    deleteElements(users);
    stopDomainController(originator, L"Error occurred deleting instance of DomainController\r\n%s%s");
}
