#pragma once

/// How the runtime fills the arrays of accounts that it hands out.

#include "runtime/host/host.h"
#include "runtime/host/paging.h"
#include "runtime/util/QVArray.h"

/// Appends one new object for every account of a paged list. On failure the list is empty again and the
/// reason is returned: a part is never shown as the whole. `fetch(cursor)` answers pages (`host::readPages`).
template <class Entry, class Fetch>
host::Answer<host::Done> fillAccountList(QVArray<Entry*, Entry*>& list, Fetch fetch) {
    const auto result = host::readPages<host::Account>(fetch, [&list](host::Account&& account) {
        list.Add(nullptr);  // room first: an object is never without an owner
        const int last = list.GetSize() - 1;
        list.SetAt(last, new Entry(account));
    });
    if (!result.found()) deleteElements(list);
    return result;
}

/// The same for accounts that came in one piece.
template <class Entry>
void fillAccountList(QVArray<Entry*, Entry*>& list, const std::vector<host::Account>& accounts) {
    for (const host::Account& account : accounts) {
        list.Add(nullptr);
        list.SetAt(list.GetSize() - 1, new Entry(account));
    }
}
