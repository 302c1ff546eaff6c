#pragma once

/// Questions about lists of accounts.

#include "runtime/util/OwnedArray.h"
#include "runtime/util/QVSid.h"
#include "tests/conformance/transcript.h"

namespace conformance {

/// Full name and SID, as the account's own operations give them.
CString shown(const QVSid& account);

/// The accounts of a list in one text.
template <class Entry>
CString shown(const QVArray<Entry*, Entry*>& list) {
    CString text = formatted(L"%d:", list.GetSize());
    for (int i = 0; i < list.GetSize(); ++i)
        text += (i == 0 ? L" " : L", ") + shown(*list[i]);
    return text;
}

/// Asks for a list as a whole, and then writes a line for each of its accounts.
template <class Entry, class Fill>
void askForList(const wchar_t* operation, OwnedArray<Entry>& list, Fill fill) {
    ask(operation, {}, [&] {
        const int done = fill(list);
        return formatted(L"%d, %d accounts", done, list.GetSize());
    });
    for (int i = 0; i < list.GetSize(); ++i)
        ask(operation, {i}, [&] { return shown(*list[i]); });
}

/// What a call answers for each account of a list: `question(account, groups)`.
template <class Entry, class Group, class Question>
void askForEach(const wchar_t* operation, const OwnedArray<Entry>& list, Question question) {
    for (int i = 0; i < list.GetSize(); ++i) {
        ask(operation, {list[i]->fullName()}, [&] {
            OwnedArray<Group> groups;
            const int done = question(*list[i], groups);
            return formatted(L"%d, ", done) + shown(groups);
        });
    }
}

}  // namespace conformance
