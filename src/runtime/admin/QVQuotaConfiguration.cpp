#include "runtime/admin/QVQuotaConfiguration.h"

#include <cstring>
#include <memory>
#include <set>

#include "runtime/admin/QVQuotaFile.h"
#include "runtime/admin/QuotaEntries.h"
#include "runtime/admin/QuotaGroups.h"
#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"
#include "runtime/host/sid_text.h"
#include "runtime/util/DomainSession.h"

namespace {

using QuotaType = QVQuotaConfiguration::QuotaType;

struct Instance {
    explicit Instance(std::unique_ptr<QVQuotaFile> parsed)
        : file(std::move(parsed)),
          users(file->mf_getUserQuotas()),
          groups(file->mf_getGroupQuotas()),
          memberships(groups) {
        if (file->mf_getDefaultQuota() != nullptr) defaultQuota = *file->mf_getDefaultQuota();
    }

    std::unique_ptr<QVQuotaFile> file;
    QuotaEntries users;
    QuotaEntries groups;
    QuotaGroups memberships;
    QVQuota defaultQuota;
};

std::unique_ptr<Instance> instance;

/// What applies to one account.
struct Rule {
    QuotaType type = QVQuotaConfiguration::noRule;
    QVQuota* quota = nullptr;
    CString explanation;
};

QVQuota& noQuota() {
    static QVQuota none;
    return none;
}

/// Reads no further than the SID says that it goes.
host::Sid copyOf(const SID* account) {
    if (account == nullptr) raise(QVErrno::_E_::Unspecific, L"no account was given");
    std::uint8_t head[8];
    std::memcpy(head, account, sizeof head);
    host::Sid sid;
    sid.revision = head[0];
    sid.subAuthorityCount = head[1];
    if (sid.subAuthorityCount > host::Sid::maximumSubAuthorities) {
        raise(QVErrno::_E_::Unspecific, L"what was given is no SID");
    }
    std::memcpy(sid.authority.data(), head + 2, sid.authority.size());
    const char* const subAuthorities = reinterpret_cast<const char*>(account) + sizeof head;
    std::memcpy(sid.subAuthorities.data(), subAuthorities, sid.subAuthorityCount * sizeof(std::uint32_t));
    return sid;
}

/// "group CORP\Staff", "groups CORP\Staff, BUILTIN\Users": those with the largest quota, in the file's order.
CString namesOf(const QuotaEntries& groups, const std::set<int>& matching, const QVQuota& largest) {
    CString names;
    int count = 0;
    for (const int index : matching) {
        if (groups.at(index).quota() != largest) continue;
        if (count++ != 0) names += L", ";
        names += groups.at(index).sid().fullName();
    }
    return (count == 1 ? L"group " : L"groups ") + names;
}

bool findGroupRule(Instance& quotas, const host::Account& account, Rule& rule) {
    const QuotaEntries& groups = quotas.groups;
    const std::set<int> matching = quotas.memberships.entriesOf(account);
    for (const int index : matching) {
        QVQuota& quota = groups.at(index).quota();
        if (rule.quota == nullptr || *rule.quota < quota) rule.quota = &quota;
    }
    if (rule.quota == nullptr) return false;
    rule.type = QVQuotaConfiguration::groupEntry;
    rule.explanation = namesOf(groups, matching, *rule.quota);
    return true;
}

bool findUserRule(const QuotaEntries& users, const host::Account& account, Rule& rule) {
    const int index = users.find(account);
    if (index == QuotaEntries::none) return false;
    rule = {QVQuotaConfiguration::userEntry, &users.at(index).quota(), {}};
    return true;
}

/// The account of a SID: as it was listed, else as the system knows it.
host::Answer<host::Account> accountOf(const host::Sid& sid) {
    const auto listed = DomainSession::listedUsers();
    const std::size_t index = listed ? listed->find(sid) : ListedAccounts::none;
    return index != ListedAccounts::none ? host::Answer(listed->at(index)) : host::accountOfSid(sid);
}

/// The rules that need the account's name, where there are any.
bool findRuleByName(Instance& quotas, const host::Sid& sid, Rule& rule) {
    if (!quotas.users.needNames() && quotas.groups.empty()) return false;
    const auto account = accountOf(sid);
    if (account.found()) {
        const host::Account known{account.value.domain, account.value.name, sid};
        if (findUserRule(quotas.users, known, rule)) return true;
        return !quotas.groups.empty() && findGroupRule(quotas, known, rule);
    }
    if (quotas.users.haveUndecided() || !quotas.groups.empty()) {
        raise(account.failure,
              formatted(L"the name of the account %s cannot be determined", host::sidText(sid).c_str()));
    }
    return false;
}

Rule ruleFor(Instance& quotas, const host::Sid& sid) {
    Rule rule;
    if (findUserRule(quotas.users, {L"", L"", sid}, rule) || findRuleByName(quotas, sid, rule)) return rule;
    if (quotas.file->mf_getDefaultQuota() == nullptr) return {QVQuotaConfiguration::noRule, &noQuota(), {}};
    return {QVQuotaConfiguration::defaultEntry, &quotas.defaultQuota, {}};
}

}  // namespace

void QVQuotaConfiguration::mf_createInstance() {
    if (operation::answersZero(L"QVQuotaConfiguration::mf_createInstance")) return;
    instance.reset();
    auto file = std::make_unique<QVQuotaFile>();
    file->parse();
    instance = std::make_unique<Instance>(std::move(file));
}

void QVQuotaConfiguration::mf_deleteInstance() {
    instance.reset();
    if (operation::answersZero(L"QVQuotaConfiguration::mf_deleteInstance")) return;
}

QuotaType QVQuotaConfiguration::mf_getQuota(const SID* account, QVQuota*& quota, CString& explanation) {
    const host::Sid sid = copyOf(account);
    if (operation::answersZero(L"QVQuotaConfiguration::mf_getQuota",
                               [&sid] { return CString(host::sidText(sid)); })) {
        quota = &noQuota();
        return noRule;
    }
    if (!instance) raise(QVErrno::_E_::Unspecific, L"the quotas were not read");
    const Rule rule = ruleFor(*instance, sid);
    quota = rule.quota;
    if (rule.type == groupEntry) explanation = rule.explanation;
    return rule.type;
}

const CString QVQuotaConfiguration::mf_getQuotaTypeString(QuotaType type, int) {
    if (operation::answersZero(L"QVQuotaConfiguration::mf_getQuotaTypeString")) return {};
    switch (type) {
        case userEntry: return L"user entry";
        case groupEntry: return L"group entry";
        case defaultEntry: return L"default entry";
        default: return L"no quota rule";
    }
}
