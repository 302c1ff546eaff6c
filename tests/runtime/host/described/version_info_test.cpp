#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using VersionInfo = DescribedMachine;

TEST_F(VersionInfo, IsToldOfImages) {
    describe(
        "[files]\nC:\\a.sys\nC:\\b.sys\nC:\\c.sys\n[versions]\nC:\\A.SYS = 6.1.5.2\nC:\\gone.sys = 1.0\n"
        "! error 1813 C:\\b.sys\n"
        "C:\\c.sys = 1.0\n- C:\\c.sys\n");
    const auto version = host::fileVersion(L"c:\\a.sys");
    ASSERT_TRUE(version.found());
    EXPECT_EQ(version.value.major, 6);
    EXPECT_EQ(version.value.minor, 1);
    EXPECT_EQ(version.value.build, 5);
    EXPECT_EQ(version.value.revision, 2);
    EXPECT_TRUE(host::fileVersion(L"C:\\gone.sys").isMissing());
    EXPECT_EQ(host::fileVersion(L"C:\\b.sys").failure.code, 1813U);
    EXPECT_TRUE(host::fileVersion(L"C:\\c.sys").isMissing());
    EXPECT_TRUE(host::fileVersion(L"").isMissing());
    EXPECT_TRUE(host::fileVersion(L"relative.sys").isMissing());
}

}  // namespace
