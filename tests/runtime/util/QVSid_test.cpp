#include "runtime/util/QVSid.h"

#include <gtest/gtest.h>

#include <cstring>

#include "runtime/base/QVErrno.h"
#include "runtime/host/os.h"
#include "runtime/host/sid_text.h"

namespace {

TEST(QVSid, BinaryFormIsTheSystemsOwn) {
    const QVSid account(host::Account{L"BUILTIN", L"Administrators", *host::sidOf(L"S-1-5-32-544")});
    const unsigned char expected[] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
    EXPECT_EQ(std::memcmp(account.mf_getSid(), expected, sizeof expected), 0);
}

TEST(QVSid, FullNameHasTheDomain) {
    EXPECT_EQ(QVSid({L"CORP", L"alice", {}}).mf_getFullName(), L"CORP\\alice");
    EXPECT_EQ(QVSid({L"", L"Everyone", {}}).mf_getFullName(), L"Everyone");
}

TEST(QVSid, AnUnresolvedAccountIsItsSid) {
    const QVSid orphan({L"", L"", *host::sidOf(L"S-1-5-21-1-2-3-1004")});
    EXPECT_EQ(orphan.mf_getFullName(), L"S-1-5-21-1-2-3-1004");
}

TEST(QVSid, AnAccountWithoutSidSaysSo) {
    const QVSid account({L"CORP", L"alice", {}});
    EXPECT_THROW(account.mf_getSid(), QVErrno);
    try {
        account.mf_getSidString();
        FAIL();
    } catch (QVErrno& error) {
        EXPECT_NE(error.mf_toString().units().find(L"CORP\\alice"), std::wstring::npos);
    }
}

TEST(QVSid, KeepsTheAccountAsItCame) {
    const host::Account alice{L"CORP", L"alice", *host::sidOf(L"S-1-5-21-1-2-3-4")};
    EXPECT_EQ(QVSid(alice).account(), alice);
    const host::Account odd{L"", L"a\\b", {}};
    EXPECT_EQ(QVSid(odd).account(), odd);
}

}  // namespace
