#include "runtime/host/paging.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Numbers = host::Page<int>;
using Fetch = std::function<host::Answer<Numbers>(std::uint64_t)>;

Numbers page(std::vector<int> items, std::uint64_t next, bool more) {
    Numbers result;
    result.items = std::move(items);
    result.next = next;
    result.more = more;
    return result;
}

/// The items that were taken, how the list ended, and the cursors that were asked for.
struct Reading {
    std::vector<int> taken;
    std::vector<std::uint64_t> cursors;
    host::Answer<host::Done> end;
};

Reading read(const Fetch& fetch) {
    Reading reading;
    const auto counting = [&](std::uint64_t cursor) {
        reading.cursors.push_back(cursor);
        if (reading.cursors.size() > 100) throw std::runtime_error("the list is read for ever");
        return fetch(cursor);
    };
    reading.end = host::readPages<int>(counting, [&](int item) { reading.taken.push_back(item); });
    return reading;
}

}  // namespace

TEST(ReadPages, ReadsOnePage) {
    const Reading reading = read([](std::uint64_t) { return page({1, 2}, 0, false); });
    EXPECT_TRUE(reading.end.found());
    EXPECT_EQ(reading.taken, (std::vector<int>{1, 2}));
    EXPECT_EQ(reading.cursors, (std::vector<std::uint64_t>{0}));
}

TEST(ReadPages, ReadsAnEmptyList) {
    const Reading reading = read([](std::uint64_t) { return page({}, 0, false); });
    EXPECT_TRUE(reading.end.found());
    EXPECT_TRUE(reading.taken.empty());
}

TEST(ReadPages, HandsOnEachCursorAsItCame) {
    const Reading reading = read([](std::uint64_t cursor) {
        if (cursor == 0) return page({1}, 0xFFFFFFFF00000001U, true);
        if (cursor == 0xFFFFFFFF00000001U) return page({2}, 7, true);
        return page({3}, 0, false);
    });
    EXPECT_TRUE(reading.end.found());
    EXPECT_EQ(reading.taken, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(reading.cursors, (std::vector<std::uint64_t>{0, 0xFFFFFFFF00000001U, 7}));
}

TEST(ReadPages, TakesAnEmptyLastPage) {
    const Reading reading =
        read([](std::uint64_t cursor) { return cursor == 0 ? page({1}, 1, true) : page({}, 1, false); });
    EXPECT_TRUE(reading.end.found());
    EXPECT_EQ(reading.taken, (std::vector<int>{1}));
}

TEST(ReadPages, EndsWhenAnEmptyPagePromisesMore) {
    const Reading reading = read([](std::uint64_t cursor) { return page({}, cursor + 1, true); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.end.failure.code, 0U);
    EXPECT_EQ(reading.end.failure.text, L"the list makes no progress");
    EXPECT_EQ(reading.cursors.size(), 1U);
}

TEST(ReadPages, EndsWhenTheCursorStandsStill) {
    const Reading reading = read([](std::uint64_t) { return page({1}, 5, true); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.cursors, (std::vector<std::uint64_t>{0, 5}));
    EXPECT_EQ(reading.taken, (std::vector<int>{1, 1}));
}

TEST(ReadPages, EndsWhenTheFirstCursorComesBack) {
    const Reading reading = read([](std::uint64_t) { return page({1}, 0, true); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.cursors.size(), 1U);
}

TEST(ReadPages, KeepsWhatWasTakenBeforeAFailure) {
    const Reading reading = read([](std::uint64_t cursor) {
        return cursor == 0 ? host::Answer<Numbers>(page({1, 2}, 2, true))
                           : host::Answer<Numbers>::failed(2221, L"gone");
    });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.end.failure.code, 2221U);
    EXPECT_EQ(reading.end.failure.text, L"gone");
    EXPECT_EQ(reading.taken, (std::vector<int>{1, 2}));
}

TEST(ReadPages, PassesOnRefusedAndMissing) {
    const Reading refused = read([](std::uint64_t) { return host::Answer<Numbers>::refused(5); });
    EXPECT_EQ(refused.end.status, host::Status::refused);
    EXPECT_EQ(refused.end.failure.code, 5U);
    const Reading missing = read([](std::uint64_t) { return host::Answer<Numbers>::missing(); });
    EXPECT_TRUE(missing.end.isMissing());
}

namespace {

Numbers pageOfHandle(std::vector<int> items) {
    Numbers result = page(std::move(items), 42, true);
    result.nextIsHandle = true;
    return result;
}

}  // namespace

TEST(ReadPages, TakesAHandleThatStaysAsItIs) {
    int asked = 0;
    const Reading reading = read([&](std::uint64_t cursor) {
        EXPECT_EQ(cursor, asked == 0 ? 0U : 42U);
        Numbers next = pageOfHandle({asked * 2, asked * 2 + 1});
        next.more = ++asked < 4;
        return next;
    });
    EXPECT_TRUE(reading.end.found());
    EXPECT_EQ(reading.taken, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(ReadPages, EndsWhenAHandleGivesTheSamePageAgain) {
    int asked = 0;
    const Reading reading = read([&](std::uint64_t) { return pageOfHandle({++asked < 6 ? asked : 6, 9}); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.end.failure.text, L"the list makes no progress");
    EXPECT_EQ(reading.cursors.size(), 7U);
}

TEST(ReadPages, EndsWhenPagesOfAHandleGoRoundInACircle) {
    int asked = 0;
    const Reading reading = read([&](std::uint64_t) { return pageOfHandle({asked++ % 5}); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.end.failure.text, L"the list makes no progress");
}

TEST(ReadPages, EndsWhenThePageComesAgainAndAgainThoughTheCursorMoves) {
    const Reading reading = read([](std::uint64_t cursor) { return page({1, 2}, cursor + 2, true); });
    EXPECT_EQ(reading.end.status, host::Status::failed);
    EXPECT_EQ(reading.end.failure.text, L"the list makes no progress");
    EXPECT_EQ(reading.cursors.size(), 52U);
}

TEST(ReadPages, TakesAnItemThatAListHoldsTwice) {
    const Reading reading = read([](std::uint64_t cursor) { return page({7}, cursor + 1, cursor < 3); });
    EXPECT_TRUE(reading.end.found());
    EXPECT_EQ(reading.taken, (std::vector<int>{7, 7, 7, 7}));
}

TEST(ReadPages, EndsAListThatDoesNotEnd) {
    int taken = 0;
    const auto end = host::readPages<int>(
        [](std::uint64_t cursor) {
            return host::Answer<Numbers>(page({static_cast<int>(cursor), 1, 2}, cursor + 3, true));
        },
        [&](int) { ++taken; }, 1000);
    EXPECT_EQ(end.status, host::Status::failed);
    EXPECT_EQ(end.failure.text, L"the list does not end");
    EXPECT_EQ(taken, 1002);
}
