#include <gtest/gtest.h>

#include "runtime/host/host.h"

namespace {

TEST(HostVerdicts, ThereIsNothingInStoreForOperations) {
    EXPECT_FALSE(host::verdictsArePlanned());
    EXPECT_EQ(host::verdictOn(L"QVRegistry::mf_exists", L"x").kind, host::Verdict::Kind::proceed);
}

}  // namespace
