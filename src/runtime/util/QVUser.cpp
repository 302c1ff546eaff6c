#include "runtime/util/QVUser.h"

#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/util/DomainSession.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/account_list.h"

namespace {

/// Whoever walks the list will ask for its accounts one by one: the domain controller's instance remembers
/// them.
host::Answer<host::Done> fill(QVArray<QVUser*, QVUser*>& list, const host::AccountSource& source) {
    const bool isRemembered = DomainSession::isStarted();
    ListedAccounts users;
    const auto result = fillAccountList(list, [&](std::uint64_t cursor) {
        auto page = host::users(source, cursor);
        for (const host::Account& user : page.value.items) {
            if (isRemembered) users.add(user);
        }
        return page;
    });
    if (isRemembered && result.found()) DomainSession::usersListed(std::move(users));
    return result;
}

CString whyNoGroups(const host::Answer<std::vector<host::Account>>& groups, const wchar_t* which,
                    const CString& user) {
    if (groups.isMissing())
        return formatted(L"%s of '%s' cannot be listed: no such user is known", which, user);
    return formatted(L"%s of '%s' cannot be listed", which, user);
}

}  // namespace

int QVUser::mf_getComputerUserList(QVArray<QVUser*, QVUser*>& list) {
    if (operation::answersZero(L"QVUser::mf_getComputerUserList")) return 0;
    const auto result = fill(list, {});
    if (result.found()) return 1;
    logNaturalCause(L"QVUser::mf_getComputerUserList", result, L"the local users cannot be listed");
    return 0;
}

int QVUser::mf_getDomainUserList(QVArray<QVUser*, QVUser*>& list) {
    if (operation::answersZero(L"QVUser::mf_getDomainUserList")) return 0;
    const auto result =
        DomainSession::ask([&list](const host::AccountSource& source) { return fill(list, source); });
    if (result.found()) return 1;
    logNaturalCause(L"QVUser::mf_getDomainUserList", result, L"the domain users cannot be listed");
    return 0;
}

int QVUser::mf_getComputerGroupList(QVArray<QVGroup*, QVGroup*>& list) {
    if (operation::answersZero(L"QVUser::mf_getComputerGroupList", [this] { return fullName(); })) return 0;
    const auto groups = host::localGroupsOf({}, account());
    if (groups.found()) {
        fillAccountList(list, groups.value);
        return 1;
    }
    logNaturalCause(L"QVUser::mf_getComputerGroupList", groups,
                    whyNoGroups(groups, L"the local groups", fullName()));
    return 0;
}

int QVUser::mf_getDomainLocalGroupList(QVArray<QVGroup*, QVGroup*>& list) {
    if (operation::answersZero(L"QVUser::mf_getDomainLocalGroupList", [this] { return fullName(); }))
        return 0;
    const auto groups = QVDomainController::domainLocalGroupsOf(account());
    if (groups.found()) {
        fillAccountList(list, groups.value);
        return 1;
    }
    logNaturalCause(L"QVUser::mf_getDomainLocalGroupList", groups,
                    whyNoGroups(groups, L"the domain-local groups", fullName()));
    return 0;
}
