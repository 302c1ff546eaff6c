#include <cstddef>
#include <memory>

#include "checker/QVInstallationChecker.h"
#include "checker/write_log.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/QVString.h"
#include "runtime/host/os.h"

namespace {

/// Room for what `GetUserNameW` is told: 512 characters.
constexpr DWORD userNameSize = 512;
/// The field for a name is 256 characters long: what stands in for one keeps to it, with its terminator.
constexpr std::size_t placeholderLength = 255;

CString currentUserName() {
    static const wchar_t* const originator = L"QVInstallationChecker::mf_getCurrentUser";
    wchar_t name[userNameSize] = {};
    DWORD size = userNameSize;
    SetLastError(0);
    if (GetUserNameW(name, &size)) return CString(name);
    const DWORD code = GetLastError();
    const QVErrno error(QVErrnoData(QVErrno::_E_::System), code);
    writeLog(QVLogData::LEVEL_E, originator, L"Failure determining user name: '%s'\r\n", error);
    const CString placeholder = QVString(3345);
    return CString(placeholder.units().substr(0, placeholderLength));
}

struct SidDeleter {
    void operator()(PSID sid) const { FreeSid(sid); }
};

/// Whether the administrators group is enabled in the thread's token; a question that fails counts as no.
bool isAdministrator() {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    PSID administrators = nullptr;
    if (!AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0,
                                  0, 0, 0, 0, &administrators)) {
        return false;
    }
    const std::unique_ptr<void, SidDeleter> owned(administrators);
    BOOL isMember = 0;
    if (!CheckTokenMembership(nullptr, owned.get(), &isMember)) isMember = 0;
    return isMember != 0;
}

}  // namespace

const CString QVInstallationChecker::mf_getCurrentUser(int* notAdministrator) {
    *notAdministrator = 1;
    const CString name = currentUserName();
    if (!isAdministrator()) return QVString(3354, name);
    *notAdministrator = 0;
    return QVString(3352, name);
}
