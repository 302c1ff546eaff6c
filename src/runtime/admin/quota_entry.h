#pragma once

/// One line of the quota file.

#include <optional>
#include <string>

#include "runtime/admin/QVQuota.h"

struct QuotaEntry {
    enum class Kind { user, group, defaultQuota };
    Kind kind = Kind::defaultQuota;
    std::wstring account;  ///< the account as written, without quotes; empty for the default quota
    QVQuota quota;
};

/// The entry of a line; nothing for a line that is empty or a comment. Throws `ConfigMistake`.
std::optional<QuotaEntry> parseQuotaEntry(const std::wstring& line);
