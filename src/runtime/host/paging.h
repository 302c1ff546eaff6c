#pragma once

/// The loop over pages, written once: plain C++ over a fetch function, so that every hostile sequence of answers can be
/// tried everywhere.

#include <cstdint>

#include "runtime/host/facts.h"

namespace host {

/// Hands every item of a paged list to `take`, in order. `fetch(cursor)` answers `Answer<Page<Item>>`; it is called with
/// 0 first. Returns how the list ended: `found` when it was read to its end; else the first answer that was no page.
/// A page that promises more but makes no progress (an empty page, or a cursor that stands still) ends the list as
/// `failed`: nothing loops for ever. Items taken before a failure stay taken.
template <class Item, class Fetch, class Take>
Answer<Done> readPages(Fetch fetch, Take take) {
    std::uint64_t cursor = 0;
    for (;;) {
        Answer<Page<Item>> page = fetch(cursor);
        if (!page.found()) return Answer<Done>::without(page);
        for (Item& item : page.value.items) take(std::move(item));
        if (!page.value.more) return Done{};
        if (page.value.items.empty() || page.value.next == cursor) {
            return Answer<Done>::failed(0, L"the list makes no progress");
        }
        cursor = page.value.next;
    }
}

}  // namespace host
