#include "runtime/admin/QVQuotaFile.h"

#include "runtime/admin/quota_entry.h"
#include "runtime/base/QVLog.h"
#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/base/product.h"
#include "runtime/host/host.h"
#include "runtime/host/sid_text.h"

namespace {

const wchar_t* const relativeName = L"config\\quota.cfg";
const wchar_t* const parseName = L"QVConfigFileBase::mf_parse";

host::Answer<std::wstring> installationDirectory() {
    using Directory = host::Answer<std::wstring>;
    const auto value = host::registryValue(product::clientKey, product::pathValue);
    if (!value.found()) return Directory::without(value);
    if (value.value.kind != host::RegistryValue::Kind::text) {
        return Directory::failed(0, L"the registry value Path is of type " + value.value.typeName);
    }
    if (value.value.text.empty()) return Directory::failed(0, L"the registry value Path is empty");
    return value.value.text;
}

/// An entry's account as the system knows it, or as it is written.
struct LookedUp {
    host::Account account;
    bool asked = true;  ///< the system answered, be it that there is no such account
    CString warning{};  ///< why it is as it is written; else empty
};

/// The account as it is written: "DOMAIN\name", or a name alone.
host::Account named(const std::wstring& written) {
    const std::size_t separator = written.find(L'\\');
    if (separator == std::wstring::npos) return {L"", written, {}};
    return {written.substr(0, separator), written.substr(separator + 1), {}};
}

LookedUp lookUp(const std::wstring& written, const CString& place) {
    const auto sid = host::sidOf(written);
    if (!sid && host::looksLikeSid(written))
        throw ConfigMistake{quotedText(written) + L" is no SID, expected one like S-1-5-32-545"};
    auto known = sid ? host::accountOfSid(*sid) : host::accountOfName(written);
    if (known.found()) {
        if (sid) known.value.sid = *sid;
        return LookedUp{std::move(known.value)};
    }
    LookedUp asWritten{sid ? host::Account{L"", L"", *sid} : named(written)};
    asWritten.asked = known.isMissing() || sid;
    asWritten.warning = known.isMissing()
                            ? formatted(L"%s: the account '%s' is not known", place, written.c_str())
                            : reasonText(known, formatted(L"%s: the account '%s' cannot be looked up", place,
                                                          written.c_str()));
    return asWritten;
}

CString configFileName() {
    const auto directory = installationDirectory();
    if (!directory.found()) return relativeName;
    const std::size_t end = directory.value.find_last_not_of(L"\\/");
    const std::wstring withoutSeparator = directory.value.substr(0, end == std::wstring::npos ? 0 : end + 1);
    return CString(withoutSeparator + L"\\" + relativeName);
}

[[noreturn]] void refuseDuplicate(const CString& what, std::size_t firstLine) {
    throw ConfigMistake{formatted(L"%s was already given in line %u, expected it once", what,
                                  static_cast<unsigned long long>(firstLine))};
}

}  // namespace

const CString QVQuotaFile::mf_getConfigFileName() {
    if (operation::answersZero(L"QVQuotaFile::mf_getConfigFileName")) return {};
    return configFileName();
}

QVQuotaFile::QVQuotaFile() : QVConfigFileBase(configFileName()) {}

QVQuotaFile::QVQuotaFile(const CString& path) : QVConfigFileBase(path) {
    if (operation::answersZero(L"QVQuotaFile::QVQuotaFile", path)) return;
}

void QVQuotaFile::mf_clear() {
    if (operation::answersZero(L"QVQuotaFile::mf_clear", mf_getPath())) return;
    discard();
}

void QVQuotaFile::discard() noexcept {
    m_users = {};
    m_groups = {};
    m_entries.clear();
    m_default.reset();
    m_lines.clear();
    m_warnings = 0;
}

void QVQuotaFile::checkPath() const {
    if (!(mf_getPath() == relativeName)) return;
    const auto directory = installationDirectory();
    const CString what = L"the installation directory is unknown";
    if (directory.unanswered()) raise(directory.failure, what);
    raise(QVErrno::_E_::Unspecific,
          directory.found()
              ? what
              : what + formatted(L": the registry value %s\\Path is missing", product::clientKey));
}

void QVQuotaFile::parseLine(const ConfigLine& line) {
    const auto entry = parseQuotaEntry(line.text);
    if (!entry) return;
    if (entry->kind == QuotaEntry::Kind::defaultQuota) {
        setDefault(*entry, line.number);
    } else {
        addAccount(*entry, line.number);
    }
}

void QVQuotaFile::setDefault(const QuotaEntry& entry, std::size_t line) {
    if (m_default) refuseDuplicate(L"the default quota", m_defaultLine);
    m_default = entry.quota;
    m_defaultLine = line;
}

void QVQuotaFile::addAccount(const QuotaEntry& entry, std::size_t line) {
    const CString place = formatted(L"%s, line %u", mf_getPath(), static_cast<unsigned long long>(line));
    const LookedUp found = lookUp(entry.account, place);
    if (const std::size_t* firstLine = m_lines.find(found.account)) {
        refuseDuplicate(L"the account " + quotedText(QVSid(found.account).fullName().units()), *firstLine);
    }
    m_lines.add(found.account, line);
    if (!found.warning.IsEmpty()) warn(found.warning);
    m_entries.push_back(std::make_unique<QVSidQuota>(found.account, entry.quota, found.asked));
    (entry.kind == QuotaEntry::Kind::user ? m_users : m_groups).Add(m_entries.back().get());
}

void QVQuotaFile::warn(const CString& text) {
    constexpr int mostWarnings = 100;
    if (++m_warnings > mostWarnings) return;
    QVLog::mf_writeMessage(QVLogData::LEVEL_W, parseName, L"%s", text);
    if (m_warnings == mostWarnings) {
        QVLog::mf_writeMessage(QVLogData::LEVEL_W, parseName,
                               L"%s: further accounts of this kind are not recorded", mf_getPath());
    }
}
