#include "runtime/host/facts.h"

#include <gtest/gtest.h>

namespace {

/// S-1-5 with these sub-authorities.
host::Sid sid(std::initializer_list<std::uint32_t> subAuthorities) {
    host::Sid sid;
    sid.authority[5] = 5;
    for (const std::uint32_t part : subAuthorities)
        sid.subAuthorities[sid.subAuthorityCount++] = part;
    return sid;
}

TEST(Sid, ComparesWhatCounts) {
    const host::Sid one = sid({21, 1, 2, 3});
    host::Sid other = one;
    other.subAuthorities[10] = 7;
    EXPECT_TRUE(one == other);
    EXPECT_FALSE(one < other);
    other.subAuthorities[3] = 4;
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(one < other);
    EXPECT_FALSE(other < one);
    EXPECT_TRUE(sid({21, 1, 2}) < one);
    host::Sid lowerAuthority = sid({99});
    lowerAuthority.authority[5] = 4;
    EXPECT_TRUE(lowerAuthority < one);
    other.subAuthorityCount = 200;
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(one < other);
}

TEST(Sid, WithoutSubAuthoritiesIsNone) {
    EXPECT_TRUE(host::Sid().empty());
    EXPECT_FALSE(sid({18}).empty());
}

TEST(AccountDomain, HasTheAccountsWhoseSidsItBegins) {
    const host::AccountDomain domain{L"CORP", sid({21, 1, 2, 3})};
    EXPECT_TRUE(domain.has(sid({21, 1, 2, 3, 1001})));
    EXPECT_FALSE(domain.has(sid({21, 1, 2, 4, 1001})));
    EXPECT_FALSE(domain.has(sid({21, 1, 2, 3})));
    EXPECT_FALSE(domain.has(sid({21, 1, 2, 3, 1001, 7})));
    EXPECT_FALSE(domain.has({}));
}

TEST(RegistryTypeName, IsThatOfWindows) {
    EXPECT_EQ(host::registryTypeName(0, 0), L"REG_NONE");
    EXPECT_EQ(host::registryTypeName(3, 17), L"REG_BINARY");
    EXPECT_EQ(host::registryTypeName(11, 8), L"REG_QWORD");
    EXPECT_EQ(host::registryTypeName(12, 0), L"registry type 12");
    EXPECT_EQ(host::registryTypeName(0xFFFFFFFF, 4), L"registry type 4294967295");
}

TEST(RegistryTypeName, TellsTheSizeOfANumberThatHasAnother) {
    EXPECT_EQ(host::registryTypeName(4, 4), L"REG_DWORD");
    EXPECT_EQ(host::registryTypeName(4, 1), L"REG_DWORD of 1 byte");
    EXPECT_EQ(host::registryTypeName(4, 0), L"REG_DWORD of 0 bytes");
}

}  // namespace
