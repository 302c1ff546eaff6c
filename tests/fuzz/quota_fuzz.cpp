/// Any bytes as a quota file: the parser takes them or names the mistake, and what it took keeps its
/// promises.

#include <cstddef>
#include <cstdint>

#include "runtime/admin/config_text.h"
#include "runtime/admin/quota_entry.h"
#include "runtime/host/sid_text.h"
#include "runtime/util/AccountIndex.h"

namespace {

/// Mistakes are shown in reports and messages.
void checkShown(const CString& text) {
    if (text.IsEmpty() || text.GetLength() > 500) __builtin_trap();
    for (const wchar_t unit : text.units()) {
        if (unit < 0x20 && unit != L'\t') __builtin_trap();
    }
}

void checkEntry(const QuotaEntry& entry) {
    const bool isDefault = entry.kind == QuotaEntry::Kind::defaultQuota;
    if (isDefault != entry.account.empty()) __builtin_trap();
    if (entry.account.find_first_of(L"\"\n\r") != std::wstring::npos) __builtin_trap();
    if (entry.quota == QVQuota()) __builtin_trap();
    const auto sid = host::sidOf(entry.account);
    if (sid && host::sidOf(host::sidText(*sid)) != sid) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ConfigLines lines({reinterpret_cast<const char*>(data), size});
    ConfigLine line;
    AccountIndex<std::size_t> accounts;
    try {
        while (lines.next(line)) {
            const auto entry = parseQuotaEntry(line.text);
            if (!entry) continue;
            checkEntry(*entry);
            const host::Account account{L"", entry->account,
                                        host::sidOf(entry->account).value_or(host::Sid())};
            if (accounts.find(account) == nullptr) accounts.add(account, line.number);
            if (accounts.find(account) == nullptr) __builtin_trap();
        }
    } catch (const ConfigMistake& mistake) {
        checkShown(mistake.text);
        if (line.number == 0 || line.number > size + 1) __builtin_trap();
    }
    return 0;
}
