#pragma once

/// The quota file: the quotas of users and groups, and the one for everybody else (docs/quota-file.md).

#include <memory>
#include <optional>
#include <vector>

#include "runtime/admin/QVConfigFileBase.h"
#include "runtime/admin/QVSidQuota.h"
#include "runtime/util/AccountIndex.h"
#include "runtime/util/QVArray.h"

struct QuotaEntry;

/// Entries keep the order of the file. Their accounts are looked up when they are read; an account that the
/// system cannot name, or does not know, keeps its SID, or its name, as it is written: that never makes the
/// parse fail.
class QVQuotaFile : public QVConfigFileBase {
public:
    /// "config\quota.cfg" in the installation directory that the registry names; this relative path when the
    /// registry does not tell the directory (`mf_parse` then says so).
    static const CString mf_getConfigFileName();

    /// The file is not read before `mf_parse`.
    explicit QVQuotaFile(const CString& path);

    /// The file for the runtime's own needs, at the path of `mf_getConfigFileName`: no operation of the
    /// program.
    QVQuotaFile();

    /// Forgets everything read so far, as after a parse that failed.
    void mf_clear();

    /// The entries, owned by this object.
    const QVArray<QVSidQuota*>& mf_getUserQuotas() const { return m_users; }
    const QVArray<QVSidQuota*>& mf_getGroupQuotas() const { return m_groups; }
    /// Null when the file has no default quota; owned by this object.
    const QVQuota* mf_getDefaultQuota() const { return m_default ? &*m_default : nullptr; }

protected:
    void discard() noexcept override;
    void checkPath() const override;
    void parseLine(const ConfigLine& line) override;

private:
    void setDefault(const QuotaEntry& entry, std::size_t line);
    void addAccount(const QuotaEntry& entry, std::size_t line);
    /// Records why an account stays as it is written; a file full of such accounts does not fill the disk.
    void warn(const CString& text);

    std::vector<std::unique_ptr<QVSidQuota>> m_entries;
    QVArray<QVSidQuota*> m_users;
    QVArray<QVSidQuota*> m_groups;
    std::optional<QVQuota> m_default;
    std::size_t m_defaultLine = 0;
    AccountIndex<std::size_t> m_lines;  ///< where each account was given
    int m_warnings = 0;
};
