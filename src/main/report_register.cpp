#include "main/report_register.h"

#include "checker/QVInstallationChecker.h"
#include "runtime/base/QVLog.h"
#include "runtime/base/QVString.h"
#include "runtime/base/QVSystem.h"
#include "runtime/base/product.h"
#include "runtime/cluster/QVCluster.h"
#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVUser.h"

namespace {

using Checker = QVInstallationChecker;

/// A report of the checker as the insert of its title.
template <unsigned int title, auto report>
CString titled(Checker& checker, int* problem) {
    return QVString(title, (checker.*report)(problem));
}

CString files(Checker& checker, int* problem) {
    int foundCount = 0;
    int missingCount = 0;
    return QVString(3290, checker.mf_checkInstallationFiles(&foundCount, &missingCount, problem));
}

CString clientKeyOf(const wchar_t* program) {
    return formatted(L"%s\\%s", product::clientKey, program);
}

CString logLevel(Checker& checker, const wchar_t* program, int* problem) {
    return checker.mf_getLogLevel(clientKeyOf(program), product::logLevelValue, program, nullptr, problem);
}

CString clclog(Checker& checker, int* problem) {
    return QVString(3308, logLevel(checker, L"kvxclc", problem));
}

CString guilog(Checker& checker, int* problem) {
    return QVString(3286, logLevel(checker, L"kvxgui", problem));
}

CString infolog(Checker& checker, int* problem) {
    const wchar_t* const program = L"kvxinfo";
    return QVString(
        3288, checker.mf_implGetOwnLogLevel(clientKeyOf(program), product::logLevelValue, program, problem));
}

CString servicelog(Checker& checker, int* problem) {
    return QVString(3339, logLevel(checker, L"kvxsvc", problem));
}

/// One value, indented, as the only line under its title.
CString valueUnderTitle(const CString& title, const CString& value) {
    return title + L"    " + value + L"\n";
}

/// What went wrong with the quotas, in its own line; nothing when nothing did.
CString quotaError(const CString& result, int errorsOnly, int problem) {
    const bool shown = (errorsOnly || problem) && !result.IsEmpty();
    if (!shown) return {};
    return result + L"\n";
}

void allquota(Checker& checker, int errorsOnly) {
    int problem = 0;
    ReportLines lines;
    CString quotaFilePath;
    const CString result = checker.mf_getAllQuota(problem, lines, quotaFilePath);
    if (errorsOnly && !problem) return;
    checker.mf_implPrint(QVString(3338) + quotaError(result, errorsOnly, problem) +
                         QVString(3334, quotaFilePath));
    for (int i = 0; i < lines.size(); ++i) {
        const bool last = i + 1 == lines.size();
        checker.mf_implPrint(lines.line(i) + (last ? L"" : L"\n"));
    }
}

/// Unlike "allquota", the quota file comes before the error, and the last line is ended too.
void quota(Checker& checker, int errorsOnly) {
    int problem = 0;
    ReportLines lines;
    CString quotaFilePath;
    const CString result = checker.mf_getDefinedQuotas(problem, lines, quotaFilePath);
    if (errorsOnly && !problem) return;
    checker.mf_implPrint(QVString(3332) + QVString(3334, quotaFilePath) +
                         quotaError(result, errorsOnly, problem));
    for (int i = 0; i < lines.size(); ++i)
        checker.mf_implPrint(lines.line(i) + L"\n");
}

void locusers(Checker& checker, int errorsOnly) {
    OwnedArray<QVUser> users;
    const bool listed = QVUser::mf_getComputerUserList(users) != 0;
    if (errorsOnly && listed) return;
    CString text = QVString(3311);
    if (!listed) text += QVString(3272);
    checker.mf_implPrint(text);
    for (int i = 0; i < users.GetSize(); ++i)
        checker.mf_implPrint(L"    " + users[i]->mf_getFullName() + L"\n");
}

CString ip(Checker& checker, int*) {
    return QVString(3294, checker.mf_getSystemInfo());
}

CString wincp(Checker&, int*) {
    return QVString(3357, formatted(L"    %s\r\n", QVSystem::mf_getDefaultAnsiCodepage()));
}

CString disk(Checker&, int* problem) {
    return QVString(3257, Checker::mf_getDisksInfos(problem));
}

CString cluster(Checker&, int*) {
    // The one text that is formatted twice: the description becomes part of a format.
    const CString text = QVString(3253, QVCluster::mf_toString(QVLog::TAB));
    return formatted(text) + L"\n";
}

CString version(Checker& checker, int* problem) {
    return valueUnderTitle(QVString(3287), checker.mf_getVersion(problem));
}

CString driver(Checker& checker, int* problem) {
    return valueUnderTitle(QVString(3266), checker.mf_getDriverVersion(problem));
}

CString domain(Checker& checker, int* problem) {
    return QVString(3260) + checker.mf_getDomainInfos(*problem);
}

template <auto listing>
void print(Checker& checker, int errorsOnly) {
    (checker.*listing)(errorsOnly);
}

constexpr Report returns(const wchar_t* keyword, bool inAll, int preset, InErrorsOnly inErrorsOnly,
                         CString (*text)(Checker&, int*)) {
    return {keyword, inAll, text, preset, inErrorsOnly, nullptr};
}

constexpr Report prints(const wchar_t* keyword, bool inAll, void (*print)(Checker&, int)) {
    return {keyword, inAll, nullptr, 0, InErrorsOnly::ifProblem, print};
}

constexpr bool inAll = true;
constexpr bool onlyWhenNamed = false;
constexpr auto ifProblem = InErrorsOnly::ifProblem;
constexpr auto never = InErrorsOnly::never;

// clang-format off
constexpr Report table[] = {
    returns(L"installdir", inAll, 1, ifProblem, titled<3292, &Checker::mf_getInstallDirReport>),
    returns(L"files",      inAll, 0, ifProblem, files),
    returns(L"clclog",     inAll, 1, ifProblem, clclog),
    returns(L"guilog",     inAll, 1, ifProblem, guilog),
    returns(L"infolog",    inAll, 1, ifProblem, infolog),
    returns(L"servicelog", inAll, 1, ifProblem, servicelog),
    returns(L"filter",     inAll, 1, ifProblem, titled<3245, &Checker::mf_getAttributeFileFilter>),
    prints (L"allquota",   inAll,               allquota),
    prints (L"quota",      inAll,               quota),
    prints (L"locusers",   inAll,               locusers),
    // A domain can be very large: its listings run only when they are asked for by name.
    prints (L"domusers",   onlyWhenNamed,       print<&Checker::implDo_domusers>),
    prints (L"locgroups",  inAll,               print<&Checker::implDo_locgroups>),
    prints (L"domgroups",  onlyWhenNamed,       print<&Checker::implDo_domgroups>),
    prints (L"locusergr",  inAll,               print<&Checker::implDo_locusergr>),
    prints (L"domusergr",  onlyWhenNamed,       print<&Checker::implDo_domusergr>),
    returns(L"pelmora",    inAll, 0, ifProblem, titled<3342, &Checker::mf_getSpecificPelmora>),
    returns(L"ip",         inAll, 0, never,     ip),
    returns(L"win",        inAll, 0, ifProblem, titled<3324, &Checker::mf_getWindowsVersion>),
    returns(L"wincp",      inAll, 0, never,     wincp),
    returns(L"disk",       inAll, 0, ifProblem, disk),
    returns(L"cluster",    inAll, 0, never,     cluster),
    returns(L"user",       inAll, 0, ifProblem, titled<3255, &Checker::mf_getCurrentUser>),
    returns(L"version",    inAll, 0, ifProblem, version),
    returns(L"driver",     inAll, 0, ifProblem, driver),
    returns(L"domain",     inAll, 0, ifProblem, domain),
};
// clang-format on

}  // namespace

std::span<const Report> reports() {
    return table;
}
