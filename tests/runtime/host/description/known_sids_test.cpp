#include "runtime/host/description/known_sids.h"

#include <gtest/gtest.h>

#include "runtime/host/sid_text.h"

namespace {

using host::sidText;

TEST(KnownSids, GroupsOfBuiltinHaveTheirIdentifiers) {
    EXPECT_EQ(description::builtinGroup(L"administrators"), 544U);
    EXPECT_EQ(description::builtinGroup(L"Users"), 545U);
    EXPECT_FALSE(description::builtinGroup(L"Staff"));
    EXPECT_EQ(sidText(description::builtinSid(544)), L"S-1-5-32-544");
}

TEST(KnownSids, SoHaveSomeAccountsOfEveryDomain) {
    EXPECT_EQ(description::fixedAccount(L"Administrator"), 500U);
    EXPECT_EQ(description::fixedAccount(L"guest"), 501U);
    EXPECT_EQ(description::fixedAccount(L"Domain Users"), 513U);
    EXPECT_FALSE(description::fixedAccount(L"alice"));
}

TEST(KnownSids, TheWorldsAccountsAreFoundBySidAndByName) {
    const auto everyone = description::worldAccount(L"everyone");
    ASSERT_TRUE(everyone);
    EXPECT_EQ(everyone->name, L"Everyone");
    EXPECT_EQ(everyone->domain, L"");
    EXPECT_EQ(sidText(everyone->sid), L"S-1-1-0");
    for (const wchar_t* name : {L"SYSTEM", L"nt authority\\system"}) {
        const auto system = description::worldAccount(name);
        ASSERT_TRUE(system) << name;
        EXPECT_EQ(sidText(system->sid), L"S-1-5-18");
        EXPECT_EQ(description::worldAccount(system->sid)->domain, L"NT AUTHORITY");
    }
    EXPECT_FALSE(description::worldAccount(L"CORP\\SYSTEM"));
    EXPECT_FALSE(description::worldAccount(description::builtinSid(544)));
}

TEST(KnownSids, ADomainHasTheSameSidAtEveryStartAndAnotherOneThanOthers) {
    const host::Sid corp = description::madeUpDomainSid(L"CORP");
    EXPECT_EQ(corp.subAuthorityCount, 4);
    EXPECT_EQ(corp.subAuthorities[0], 21U);
    EXPECT_TRUE(corp == description::madeUpDomainSid(L"corp"));
    EXPECT_FALSE(corp == description::madeUpDomainSid(L"CORP2"));
}

TEST(KnownSids, AnAccountsSidBeginsWithThatOfItsDomain) {
    const host::Sid corp = description::madeUpDomainSid(L"CORP");
    const host::Sid account = description::withRid(corp, 1001);
    EXPECT_TRUE((host::AccountDomain{L"CORP", corp}).has(account));
    EXPECT_EQ(account.subAuthorities[4], 1001U);
    host::Sid full = corp;
    full.subAuthorityCount = host::Sid::maximumSubAuthorities;
    EXPECT_TRUE(description::withRid(full, 7) == full);
}

}  // namespace
