#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Services = DescribedMachine;

TEST_F(Services, AreTold) {
    describe(
        "[services]\nrkhsmdrv = running C:\\Windows\\system32\\drivers\\x y.sys\nother = Stopped\n"
        "third = start pending\n");
    const auto service = host::service(L"RKHSMDRV");
    ASSERT_TRUE(service.found());
    EXPECT_TRUE(service.value.running);
    EXPECT_EQ(service.value.state, L"running");
    EXPECT_EQ(service.value.imagePath, L"C:\\Windows\\system32\\drivers\\x y.sys");
    EXPECT_FALSE(host::service(L"other").value.running);
    EXPECT_EQ(host::service(L"other").value.imagePath, L"C:\\Windows\\system32\\drivers\\other.sys");
    EXPECT_EQ(host::service(L"third").value.state, L"start pending");
    EXPECT_TRUE(host::service(L"none").isMissing());
}

TEST_F(Services, NaturalCauses) {
    describe("[services]\na = running\nb = running\n! refused a\n! error 1060 c\n- b\n! error 1722 d\n");
    EXPECT_EQ(host::service(L"a").status, host::Status::refused);
    EXPECT_TRUE(host::service(L"b").isMissing());
    EXPECT_TRUE(host::service(L"c").isMissing());
    EXPECT_EQ(host::service(L"d").failure.code, 1722U);
}

}  // namespace
