#include "runtime/host/description/machine.h"

#include <gtest/gtest.h>

namespace {

using description::answerOf;
using description::notThere;

constexpr description::Cause refusal{true, true, 5};
constexpr description::Cause gone{true, false, 3};

TEST(AnswerOf, KeepsTheCodeOfTheCause) {
    EXPECT_EQ(answerOf<int>(refusal).status, host::Status::refused);
    EXPECT_EQ(answerOf<int>(refusal).failure.code, 5U);
    EXPECT_EQ(answerOf<int>(gone).status, host::Status::failed);
    EXPECT_EQ(answerOf<int>(gone).failure.code, 3U);
}

TEST(AnswerOf, SomeCodesMeanThatTheThingIsNotThere) {
    EXPECT_TRUE(answerOf<int>(gone, notThere).isMissing());
    EXPECT_EQ(answerOf<int>(refusal, notThere).status, host::Status::refused);
    EXPECT_TRUE(answerOf<int>({true, false, 1060}, {1060}).isMissing());
}

}  // namespace
