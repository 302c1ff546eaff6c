#include "runtime/host/refusals.h"

#include <gtest/gtest.h>

namespace {

TEST(Refusals, SayThatOneMayNot) {
    for (const std::uint32_t code :
         {5U, 65U, 1260U, 1314U, 1326U, 1327U, 1328U, 1329U, 1330U, 1331U, 1385U, 1907U, 1909U})
        EXPECT_TRUE(host::isRefusal(code)) << code;
}

TEST(Refusals, AreNoFailures) {
    for (const std::uint32_t code : {0U, 2U, 3U, 21U, 53U, 1325U, 1332U, 1355U, 1722U, 1908U, 0x80070005U})
        EXPECT_FALSE(host::isRefusal(code)) << code;
}

}  // namespace
