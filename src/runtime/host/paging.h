#pragma once

/// The loop over pages, written once: plain C++ over a fetch function, so that every hostile sequence of
/// answers can be tried everywhere.

#include <cstdint>
#include <utility>

#include "runtime/host/facts.h"

namespace host {

/// Four times what the program is made for: a list that goes on is taken for one that a broken server makes
/// up.
inline constexpr std::uint64_t mostItems = 1U << 22U;

/// Notices a list that goes nowhere: pages that come again, at once or round in a circle.
template <class Item>
class PageProgress {
public:
    /// Whether the list has moved since it was asked with `cursor`. A page that is asked to go on must hold
    /// something.
    bool movedBy(const Page<Item>& page, std::uint64_t cursor) {
        const Trace now{page.next, page.items.size(), page.items.front(), page.items.back()};
        m_repeated = m_last.looksLike(now) ? m_repeated + 1 : 0;
        const bool known = page.nextIsHandle ? m_repeated > 0 || m_passed.looksLike(now)
                                             : m_repeated > mostRepeated || now.next == cursor ||
                                                   (m_pages > 0 && now.next == m_passed.next);
        m_last = now;
        if (++m_pages == m_passedAgainAt) {
            m_passed = now;
            m_passedAgainAt *= 2;
        }
        return !known;
    }

private:
    /// Where the cursor moves, a list may hold the same item several times, but not on and on.
    static constexpr std::uint64_t mostRepeated = 50;

    /// What is remembered of a page.
    struct Trace {
        std::uint64_t next = 0;
        std::size_t size = 0;
        Item first{}, last{};

        bool looksLike(const Trace& other) const {
            return size == other.size && first == other.first && last == other.last;
        }
    };
    Trace m_last;
    Trace m_passed;  // a page of before: who comes by again goes round in a circle
    std::uint64_t m_pages = 0, m_passedAgainAt = 1;
    std::uint64_t m_repeated = 0;  // how often the last page came again
};

/// Hands every item of a paged list to `take`, in order. `fetch(cursor)` answers `Answer<Page<Item>>`; it is
/// called with 0 first. Returns how the list ended: `found` when it was read to its end; else the first
/// answer that was no page. A page that promises more but makes no progress (an empty page, a cursor that
/// stands still or goes round in a circle, a page that comes again and again) ends the list as `failed`, and
/// so do more than `limit` items: nothing loops for ever. Items taken before a failure stay taken.
template <class Item, class Fetch, class Take>
Answer<Done> readPages(Fetch fetch, Take take, std::uint64_t limit = mostItems) {
    std::uint64_t cursor = 0;
    std::uint64_t taken = 0;
    PageProgress<Item> progress;
    for (;;) {
        Answer<Page<Item>> answer = fetch(cursor);
        if (!answer.found()) return Answer<Done>::without(answer);
        Page<Item>& page = answer.value;
        const bool moves = !page.items.empty() && (!page.more || progress.movedBy(page, cursor));
        taken += page.items.size();
        for (Item& item : page.items)
            take(std::move(item));
        if (!page.more) return Done{};
        if (!moves) return Answer<Done>::failed(0, L"the list makes no progress");
        if (taken > limit) return Answer<Done>::failed(0, L"the list does not end");
        cursor = page.next;
    }
}

}  // namespace host
