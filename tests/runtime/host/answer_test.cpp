#include "runtime/host/answer.h"

#include <gtest/gtest.h>

namespace {

using Number = host::Answer<int>;

TEST(Answer, IsOneOfFour) {
    EXPECT_TRUE(Number(7).found());
    EXPECT_EQ(Number(7).value, 7);
    EXPECT_TRUE(Number().isMissing());
    EXPECT_TRUE(Number::missing().isMissing());
    EXPECT_EQ(Number::refused(5).status, host::Status::refused);
    EXPECT_EQ(Number::failed(21, L"not ready").status, host::Status::failed);
    EXPECT_EQ(Number::failed(21, L"not ready").failure.code, 21U);
    EXPECT_EQ(Number::failed(21, L"not ready").failure.text, L"not ready");
}

TEST(Answer, IsUnansweredWhereNeitherTheThingNorItsAbsenceIsKnown) {
    EXPECT_FALSE(Number(7).unanswered());
    EXPECT_FALSE(Number().unanswered());
    EXPECT_TRUE(Number::refused(5).unanswered());
    EXPECT_TRUE(Number::failed(0).unanswered());
}

TEST(Answer, PassesOnWhyThereIsNone) {
    const auto passedOn = host::Answer<bool>::without(Number::refused(5, L"its words"));
    EXPECT_EQ(passedOn.status, host::Status::refused);
    EXPECT_EQ(passedOn.failure.code, 5U);
    EXPECT_EQ(passedOn.failure.text, L"its words");
    EXPECT_TRUE(host::Answer<bool>::without(Number()).isMissing());
}

}  // namespace
