#include "runtime/host/windows/handle.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

/// What was given back, in order.
std::vector<int> closed;

struct NumberTraits {
    using Handle = int;
    static Handle none() noexcept { return -1; }
    static void close(Handle handle) noexcept { closed.push_back(handle); }
};
using Number = host::windows::Owner<NumberTraits>;

class HandleOwner : public testing::Test {
protected:
    HandleOwner() { closed.clear(); }
};

using Closed = std::vector<int>;

TEST_F(HandleOwner, GivesItsHandleBackOnce) {
    {
        const Number owner(7);
        EXPECT_TRUE(owner);
        EXPECT_EQ(owner.get(), 7);
        const Number none;
        EXPECT_FALSE(none);
    }
    EXPECT_EQ(closed, Closed{7});
}

TEST_F(HandleOwner, HandsItsHandleOn) {
    {
        Number first(7);
        const Number second(std::move(first));
        EXPECT_EQ(second.get(), 7);
        Number third(8);
        third = Number(9);
        EXPECT_EQ(closed, Closed{8});
    }
    EXPECT_EQ(closed, (Closed{8, 9, 7}));
}

TEST_F(HandleOwner, ReceivesANewHandleForTheOldOne) {
    {
        Number owner(7);
        *owner.receive() = 8;
        EXPECT_EQ(closed, Closed{7});
        EXPECT_EQ(owner.get(), 8);
    }
    EXPECT_EQ(closed, (Closed{7, 8}));
}

TEST_F(HandleOwner, AFileThatCouldNotBeOpenedIsNone) {
    const host::windows::FileHandle none(INVALID_HANDLE_VALUE);
    EXPECT_FALSE(none);
    EXPECT_FALSE(host::windows::RegistryKeyHandle());
}

}  // namespace
