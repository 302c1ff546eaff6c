#include "catalog/inserts.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Inserts, AreThoseOfTheMessage) {
    EXPECT_STREQ(catalog::insertsOf(3254), "uuuus");
    EXPECT_STREQ(catalog::insertsOf(3297), "c");
    EXPECT_STREQ(catalog::insertsOf(3034), "");
}

TEST(Inserts, AMessageThatDoesNotExistHasNone) {
    EXPECT_EQ(catalog::insertsOf(0), nullptr);
    EXPECT_EQ(catalog::insertsOf(3267), nullptr);
    EXPECT_EQ(catalog::insertsOf(3623), nullptr);
}

TEST(Inserts, AreTextsNumbersAndCharacters) {
    for (const catalog::MessageInserts& message : catalog::messages) {
        EXPECT_EQ(std::string(message.kinds).find_first_not_of("suc"), std::string::npos) << message.id;
    }
}

}  // namespace
