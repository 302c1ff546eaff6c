#include "runtime/util/QVSid.h"

#include <gtest/gtest.h>

#include <cstring>

#include "runtime/base/QVErrno.h"
#include "runtime/host/os.h"

namespace {

TEST(QVSid, TextAndSidAreOneAnother) {
    for (const wchar_t* text : {L"S-1-5-32-544", L"S-1-1-0", L"S-1-5-21-4294967295-0-1-1001",
                                L"S-1-0-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15"}) {
        EXPECT_EQ(toText(sidFromText(text)), text);
    }
}

TEST(QVSid, WhatIsNoSidTextIsNoSid) {
    for (const wchar_t* text :
         {L"", L"S", L"S-", L"S-1", L"S-1-5", L"S-1-5-", L"S-1-5-x", L"S-256-5-1", L"S-1-5-4294967296",
          L"S-1-5-1x", L"alice", L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15-16"}) {
        EXPECT_TRUE(sidFromText(text).empty()) << CString(text).GetLength();
    }
}

TEST(QVSid, ALargeAuthorityIsHexadecimal) {
    host::Sid sid;
    sid.authority = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06};
    sid.subAuthorityCount = 1;
    sid.subAuthorities[0] = 7;
    EXPECT_EQ(toText(sid), L"S-1-0x010203040506-7");
}

TEST(QVSid, BinaryFormIsTheSystemsOwn) {
    const QVSid account(host::Account{L"BUILTIN", L"Administrators", sidFromText(L"S-1-5-32-544")});
    const unsigned char expected[] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
    EXPECT_EQ(std::memcmp(account.mf_getSid(), expected, sizeof expected), 0);
}

TEST(QVSid, FullNameHasTheDomain) {
    EXPECT_EQ(QVSid({L"CORP", L"alice", {}}).mf_getFullName(), L"CORP\\alice");
    EXPECT_EQ(QVSid({L"", L"Everyone", {}}).mf_getFullName(), L"Everyone");
}

TEST(QVSid, AnUnresolvedAccountIsItsSid) {
    const QVSid orphan({L"", L"", sidFromText(L"S-1-5-21-1-2-3-1004")});
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

TEST(QVSid, GoesBackToTheHostAsItCame) {
    const host::Account account = toAccount(QVSid({L"CORP", L"alice", sidFromText(L"S-1-5-21-1-2-3-4")}));
    EXPECT_EQ(account.domain, L"CORP");
    EXPECT_EQ(account.name, L"alice");
    EXPECT_EQ(toText(account.sid), L"S-1-5-21-1-2-3-4");
}

}  // namespace
