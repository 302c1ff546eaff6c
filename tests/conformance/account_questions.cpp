#include "runtime/host/sid_text.h"
#include "runtime/util/QVMain.h"
#include "runtime/util/QVUser.h"
#include "tests/conformance/lists.h"
#include "tests/conformance/questions.h"

namespace conformance {

CString shown(const QVSid& account) {
    const CString name = shown(account.mf_getFullName());
    if (account.account().sid.empty()) return name;
    return name + L" " + account.mf_getSidString();
}

namespace {

/// Accounts that are not there.
const host::Account strangers[] = {
    {L"", L"nobody at all", {}},
    {L"NOWHERE", L"nobody", {}},
    {L"", L"", *host::sidOf(L"S-1-5-21-9-9-9-9999")},
};

void askForSids(const QVSid& account) {
    ask(L"QVSid::mf_getFullName", {account.fullName()}, [&] { return shown(account.mf_getFullName()); });
    ask(L"QVSid::mf_getSidString", {account.fullName()}, [&] { return shown(account.mf_getSidString()); });
    ask(L"QVSid::mf_getSid", {account.fullName()}, [&] {
        const auto* bytes = reinterpret_cast<const unsigned char*>(account.mf_getSid());
        CString text;
        for (std::size_t i = 0; i < 8U + 4U * bytes[1]; ++i)
            text += formatted(L"%2.2x", static_cast<unsigned int>(bytes[i]));
        return text;
    });
}

void askStrangers(const wchar_t* operation, int (QVUser::*question)(QVArray<QVGroup*, QVGroup*>&)) {
    for (const host::Account& stranger : strangers) {
        QVUser user(stranger);
        ask(operation, {user.fullName()}, [&] {
            OwnedArray<QVGroup> groups;
            const int done = (user.*question)(groups);
            return formatted(L"%d, ", done) + shown(groups);
        });
    }
}

void start() {
    ask(L"QVMain::mf_startDomainController", {}, [] {
        QVMain::mf_startDomainController(0);
        return CString(L"started");
    });
}

void stop() {
    ask(L"QVMain::mf_stopDomainController", {}, [] { return shown(QVMain::mf_stopDomainController()); });
}

}  // namespace

void askLocalAccounts() {
    start();
    OwnedArray<QVUser> users;
    askForList(L"QVUser::mf_getComputerUserList", users, QVUser::mf_getComputerUserList);
    OwnedArray<QVGroup> groups;
    using GroupList = int (*)(QVArray<QVGroup*, QVGroup*>&);
    askForList(L"QVGroup::mf_getComputerGroupList", groups,
               static_cast<GroupList>(QVGroup::mf_getComputerGroupList));
    const auto groupsOf = [](QVUser& user, auto& list) { return user.mf_getComputerGroupList(list); };
    askForEach<QVUser, QVGroup>(L"QVUser::mf_getComputerGroupList", users, groupsOf);
    askStrangers(L"QVUser::mf_getComputerGroupList", &QVUser::mf_getComputerGroupList);
    if (users.GetSize() != 0) askForSids(*users[0]);
    if (groups.GetSize() != 0) askForSids(*groups[0]);
    for (const host::Account& stranger : strangers)
        askForSids(QVUser(stranger));
    stop();
}

void askDomainAccounts() {
    start();
    OwnedArray<QVUser> users;
    askForList(L"QVUser::mf_getDomainUserList", users, QVUser::mf_getDomainUserList);
    OwnedArray<QVGroup> groups;
    using GroupList = int (*)(QVArray<QVGroup*, QVGroup*>&);
    askForList(L"QVGroup::mf_getDomainLocalGroupList", groups,
               static_cast<GroupList>(QVGroup::mf_getDomainLocalGroupList));
    const auto domainLocal = [](QVUser& user, auto& list) { return user.mf_getDomainLocalGroupList(list); };
    askForEach<QVUser, QVGroup>(L"QVUser::mf_getDomainLocalGroupList", users, domainLocal);
    askStrangers(L"QVUser::mf_getDomainLocalGroupList", &QVUser::mf_getDomainLocalGroupList);
    const auto local = [](QVUser& user, auto& list) { return user.mf_getComputerGroupList(list); };
    askForEach<QVUser, QVGroup>(L"QVUser::mf_getComputerGroupList of the domain's", users, local);
    stop();
    // Alone, without a list that was read before: the answer is the same.
    start();
    askForEach<QVUser, QVGroup>(L"QVUser::mf_getDomainLocalGroupList asked alone", users, domainLocal);
    stop();
}

void askSids() {
    for (const wchar_t* text :
         {L"S-1-5-32-545", L"s-1-5-18", L"S-1-5", L"S-1-5-", L"S-1", L"", L"S-1-5-21-1-2-3-4294967295",
          L"S-1-5-21-1-2-3-4294967296", L"S-1-4294967296-1", L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15",
          L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15-16", L"S-1-5-32-545 ", L"CORP\\ada"}) {
        ask(L"QVSid of a text", {text}, [&] {
            const auto sid = host::sidOf(text);
            return sid ? shown(QVSid(host::Account{L"", L"", *sid}).mf_getFullName()) : CString(L"none");
        });
    }
}

}  // namespace conformance
