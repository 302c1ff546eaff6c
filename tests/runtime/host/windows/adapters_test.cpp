#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(HostAdapters, AdaptersHaveNamesAndNoLoopback) {
    const auto answer = host::adapters();
    ASSERT_TRUE(answer.found());
    for (const host::AdapterFacts& adapter : answer.value) {
        EXPECT_FALSE(adapter.name.empty());
        for (const std::wstring& address : adapter.addresses) {
            EXPECT_NE(address, L"127.0.0.1");
            EXPECT_NE(address, L"::1");
            EXPECT_NE(address, L"");
        }
    }
}

}  // namespace
