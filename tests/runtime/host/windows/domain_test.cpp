#include <gtest/gtest.h>

#include "runtime/host/host.h"
#include "tests/runtime/host/domain_named.h"

namespace {

TEST(HostDomain, MembershipNamesADomainOrAWorkgroup) {
    const auto answer = host::membership();
    ASSERT_TRUE(answer.found());
    EXPECT_FALSE(answer.value.domainController && !answer.value.joined);
    EXPECT_TRUE(!answer.value.joined || !answer.value.domainName.empty());
}

TEST(HostDomain, ADomainThatIsNotThereHasNoController) {
    if (host::membership().value.joined) GTEST_SKIP() << "would search the network";
    const auto answer = host::domainController(domainNamed(L"KVXTESTNONE"), true, false);
    EXPECT_TRUE(answer.unanswered());
    EXPECT_NE(answer.failure.code, 0U);
}

}  // namespace
