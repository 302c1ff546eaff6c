#pragma once

/// The entries of one kind, found by account.

#include <set>
#include <string>

#include "runtime/admin/QVSidQuota.h"
#include "runtime/util/AccountIndex.h"
#include "runtime/util/QVArray.h"

class QuotaEntries {
public:
    static constexpr int none = -1;
    static constexpr int undecided = -2;

    /// `entries` and its elements must outlive this object.
    explicit QuotaEntries(const QVArray<QVSidQuota*>& entries);

    bool empty() const { return m_entries.GetSize() == 0; }
    QVSidQuota& at(int index) const { return *m_entries[index]; }

    /// Whether the SID alone does not always tell an entry.
    bool needNames() const { return m_needNames; }
    /// Whether there are entries whose accounts the system could not be asked for.
    bool haveUndecided() const { return m_undecided; }

    /// The index of the account's entry, or `none`; `undecided` when an entry whose account the system could
    /// not be asked for may be this account's.
    int lookUp(const host::Account& account) const;
    /// The same, but for an undecided account throws `QVErrno`.
    int find(const host::Account& account) const;

private:
    void addName(const QVSidQuota& entry);

    const QVArray<QVSidQuota*>& m_entries;
    AccountIndex<int> m_index;
    bool m_needNames = false;
    bool m_undecided = false;
    std::set<std::wstring> m_undecidedNames;  ///< small letters, without domain
};
