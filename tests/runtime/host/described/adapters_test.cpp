#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Adapters = DescribedMachine;

TEST_F(Adapters, ListsAdaptersAndReplacesThoseOfTheBase) {
    describe(
        "[system]\nadapter = Ethernet #2: 192.0.2.10, fe80::1\nadapter = Idle:\n"
        "adapter = ethernet #2: 192.0.2.11\n");
    const auto adapters = host::adapters();
    ASSERT_EQ(adapters.value.size(), 2U);
    EXPECT_EQ(adapters.value[0].name, L"ethernet #2");
    EXPECT_EQ(adapters.value[0].addresses, std::vector<std::wstring>{L"192.0.2.11"});
    EXPECT_EQ(adapters.value[1].name, L"Idle");
    EXPECT_TRUE(adapters.value[1].addresses.empty());
}

}  // namespace
