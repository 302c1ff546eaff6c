#include "runtime/host/computer_name.h"

#include <gtest/gtest.h>

namespace {

TEST(ComputerName, IsTheFirstPartOfADnsName) {
    EXPECT_EQ(host::computerName(L"dc01.corp.example"), L"dc01");
    EXPECT_EQ(host::computerName(L"DC01"), L"DC01");
    EXPECT_EQ(host::computerName(L""), L"");
}

TEST(ComputerName, AnAddressStaysOne) {
    EXPECT_EQ(host::computerName(L"192.0.2.10"), L"192.0.2.10");
    EXPECT_EQ(host::computerName(L"2001:0:0:1::7"), L"2001:0:0:1::7");
}

}  // namespace
