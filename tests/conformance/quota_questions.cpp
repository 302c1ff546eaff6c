#include <limits>

#include "runtime/admin/QVQuotaConfiguration.h"
#include "runtime/host/sid_text.h"
#include "runtime/util/QVDomainController.h"
#include "runtime/util/QVMain.h"
#include "runtime/util/QVUser.h"
#include "tests/conformance/lists.h"
#include "tests/conformance/questions.h"

namespace conformance {

namespace {

CString quotaOf(const SID* account) {
    QVQuota* quota = nullptr;
    CString explanation = L"unchanged";
    const auto type = QVQuotaConfiguration::mf_getQuota(account, quota, explanation);
    const CString typeText = QVQuotaConfiguration::mf_getQuotaTypeString(type, 1);
    const CString quotaText = quota != nullptr ? shown(quota->mf_toString(1)) : CString(L"null");
    return formatted(L"%d ", static_cast<int>(type)) + shown(typeText) + L" " + quotaText + L" " +
           shown(explanation);
}

void askForEachOf(const wchar_t* operation, const OwnedArray<QVUser>& users) {
    for (int i = 0; i < users.GetSize(); ++i)
        ask(operation, {users[i]->fullName()}, [&] { return quotaOf(users[i]->mf_getSid()); });
}

void askForSids(const wchar_t* operation) {
    for (const wchar_t* text : {L"S-1-5-21-9-9-9-9999", L"S-1-5-18", L"S-1-5-32-545", L"S-1-1-0"}) {
        const host::Sid sid = *host::sidOf(text);
        ask(operation, {text}, [&] { return quotaOf(reinterpret_cast<const SID*>(&sid)); });
    }
    ask(operation, {L"no account"}, [] { return quotaOf(nullptr); });
}

void createInstance() {
    ask(L"QVQuotaConfiguration::mf_createInstance", {}, [] {
        QVQuotaConfiguration::mf_createInstance();
        return CString(L"made");
    });
}

void deleteInstance() {
    ask(L"QVQuotaConfiguration::mf_deleteInstance", {}, [] {
        QVQuotaConfiguration::mf_deleteInstance();
        return CString(L"done");
    });
}

}  // namespace

void askQuotas() {
    askForSids(L"QVQuotaConfiguration::mf_getQuota before they were read");
    QVMain::mf_startDomainController(0);
    createInstance();
    OwnedArray<QVUser> local;
    QVUser::mf_getComputerUserList(local);
    askForEachOf(L"QVQuotaConfiguration::mf_getQuota", local);
    int joined = 0;
    ask(L"QVDomainController::mf_isJoined", {L"for the quotas"},
        [&] { return shown(joined = QVDomainController::mf_isJoined()); });
    if (joined != 0) {
        OwnedArray<QVUser> domain;
        QVUser::mf_getDomainUserList(domain);
        askForEachOf(L"QVQuotaConfiguration::mf_getQuota", domain);
        QVMain::mf_startDomainController(0);  // without a list that was read before
        askForEachOf(L"QVQuotaConfiguration::mf_getQuota asked alone", domain);
    }
    askForSids(L"QVQuotaConfiguration::mf_getQuota of a SID");
    deleteInstance();
    deleteInstance();
    QVMain::mf_stopDomainController();
}

void askQuotaTexts() {
    for (const unsigned long long bytes :
         {0ULL, 1ULL, 1023ULL, 1024ULL, 1048576ULL, 524288000ULL, 1099511627775ULL,
          std::numeric_limits<unsigned long long>::max()}) {
        ask(L"QVQuota::mf_toString", {formatted(L"%u", bytes)},
            [&] { return shown(QVQuota::ofBytes(bytes).mf_toString(1)); });
    }
    ask(L"QVQuota::mf_toString", {L"unlimited"}, [] { return shown(QVQuota::unlimited().mf_toString(1)); });
    ask(L"QVQuota::mf_toString", {L"none"}, [] { return shown(QVQuota().mf_toString(1)); });
    for (const int type : {0, 1, 2, 3, 4, -1}) {
        ask(L"QVQuotaConfiguration::mf_getQuotaTypeString", {type}, [&] {
            const auto given = static_cast<QVQuotaConfiguration::QuotaType>(type);
            return shown(QVQuotaConfiguration::mf_getQuotaTypeString(given, 1));
        });
    }
}

}  // namespace conformance
