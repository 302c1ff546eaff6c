#pragma once

/// The loop over pages, written once: plain C++ over a fetch function, so that every hostile sequence of answers can be
/// tried everywhere.

#include <cstdint>

#include "runtime/host/facts.h"

namespace host {

/// Hands every item of a paged list to `take`, in order. `fetch(cursor)` answers `Answer<Page<Item>>`; it is called with
/// 0 first. Returns how the list ended: `found` when it was read to its end; else the first answer that was no page.
/// A page that promises more but makes no progress (an empty page, a cursor that stands still or goes round in a circle)
/// ends the list as `failed`: nothing loops for ever. Items taken before a failure stay taken.
template <class Item, class Fetch, class Take>
Answer<Done> readPages(Fetch fetch, Take take) {
    std::uint64_t cursor = 0;
    std::uint64_t passed = 0;  // a cursor of before: who comes by again goes round in a circle
    for (std::uint64_t page = 1, passedAgainAt = 2;; ++page) {
        if (page == passedAgainAt) {
            passed = cursor;
            passedAgainAt *= 2;
        }
        Answer<Page<Item>> answer = fetch(cursor);
        if (!answer.found()) return Answer<Done>::without(answer);
        for (Item& item : answer.value.items)
            take(std::move(item));
        if (!answer.value.more) return Done{};
        const std::uint64_t next = answer.value.next;
        if (answer.value.items.empty() || next == cursor || next == passed) {
            return Answer<Done>::failed(0, L"the list makes no progress");
        }
        cursor = next;
    }
}

}  // namespace host
