#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "tests/files.h"

namespace {

using host::Status;

TEST(HostVersionInfo, AnImageHasAVersionAndOtherFilesHaveNone) {
    const TemporaryDirectory here;
    const auto version = host::fileVersion(L"C:\\windows\\system32\\kernel32.dll");
    ASSERT_TRUE(version.found());
    EXPECT_GE(version.value.major, 5);
    EXPECT_EQ(host::fileVersion(L"none.sys").status, Status::missing);
    makeFile("a.txt", "no image at all");
    EXPECT_NE(host::fileVersion(L"a.txt").status, Status::found);
}

}  // namespace
