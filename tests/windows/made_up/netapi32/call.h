#pragma once

/// One call of a stand-in library: where it goes, and why it is not answered.

#include "tests/windows/made_up/netapi32/records.h"
#include "tests/windows/made_up/shared/machine.h"
#include "tests/windows/made_up/shared/quirks.h"

namespace made_up {

/// A call to `server` (null: this computer), counted as `function`.
class Call {
public:
    Call(const std::string& function, const wchar_t* server);

    /// Why the call has no answer; 0 when it has one.
    DWORD code() const { return m_code; }
    /// Whose accounts the server keeps.
    description::Scope scope() const { return m_scope; }
    const Oddity& oddity() const { return m_oddity; }

    description::GroupKind localGroups() const;
    const description::UserList& users() const;
    const description::GroupList& groups(description::GroupKind kind) const;

private:
    DWORD locate(const std::wstring& server);

    DWORD m_code = ERROR_SUCCESS;
    description::Scope m_scope = description::Scope::computer;
    Oddity m_oddity;
};

/// The name of a server without leading "\\"; empty for this computer.
std::wstring serverName(const wchar_t* server);
/// Whether a call to `server` leaves this computer.
bool isRemote(const wchar_t* server);

/// A page of a list.
struct Part {
    std::uint64_t first = 0, end = 0;
    std::uint64_t next = 0;  ///< where the list continues
    DWORD code = ERROR_SUCCESS;

    std::size_t count() const { return static_cast<std::size_t>(end - first); }
    bool isThere() const { return code == ERROR_SUCCESS || code == ERROR_MORE_DATA; }
};

/// The page from `start` on of a list of `total` entries, at most `most` of them, as far as its cause and the
/// call's oddity let it be read.
Part partOf(const Call& call, std::uint64_t start, std::uint64_t total, std::uint64_t most,
            const description::ListCause& cause = {});

/// Hands out the records of a page: `fill(records, index, place)` for each, `place` being that in the list.
template <class Record, class Fill>
void handOut(const Call& call, const Part& part, Fill fill, DWORD& count, BYTE** buffer) {
    const Oddity& oddity = call.oddity();
    Records<Record> records(part.count() + oddity.moreRecords, oddity.nullNames);
    for (std::size_t i = 0; i < part.count(); ++i)
        fill(records, i, part.first + i);
    count = static_cast<DWORD>(part.count() + oddity.moreRecords);
    *buffer = oddity.nullBuffer ? nullptr : records.piece();
}

}  // namespace made_up
