#include "runtime/host/windows/sids.h"

#include <gtest/gtest.h>

namespace {

using host::Sid;
using host::windows::accountIn;
using host::windows::sidFrom;
using host::windows::systemForm;

TEST(HostSids, AreThoseOfTheSystem) {
    BYTE bytes[SECURITY_MAX_SID_SIZE] = {};
    DWORD size = sizeof bytes;
    ASSERT_TRUE(CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, bytes, &size));
    Sid sid = sidFrom(bytes);
    EXPECT_EQ(sid.authority[5], 5);
    ASSERT_EQ(sid.subAuthorityCount, 2);
    EXPECT_EQ(sid.subAuthorities[0], 32U);
    EXPECT_EQ(sid.subAuthorities[1], 544U);
    EXPECT_TRUE(IsValidSid(systemForm(sid)));
    EXPECT_TRUE(EqualSid(systemForm(sid), bytes));
}

TEST(HostSids, NoneAndWhatIsNoneAreEmpty) {
    EXPECT_TRUE(sidFrom(nullptr).empty());
    Sid tooLong;
    tooLong.subAuthorityCount = Sid::maximumSubAuthorities + 1;
    EXPECT_TRUE(sidFrom(systemForm(tooLong)).empty());
}

TEST(HostSids, AnAccountsSidBeginsWithThatOfItsDomain) {
    Sid domain;
    domain.subAuthorityCount = 1;
    domain.subAuthorities[0] = 21;
    const Sid account = accountIn(domain, 1001);
    EXPECT_TRUE((host::AccountDomain{L"CORP", domain}).has(account));
    EXPECT_EQ(account.subAuthorities[1], 1001U);
    EXPECT_TRUE(accountIn(Sid(), 1001).empty());
    domain.subAuthorityCount = Sid::maximumSubAuthorities;
    EXPECT_TRUE(accountIn(domain, 1001).empty());
}

}  // namespace
