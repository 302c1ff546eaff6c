#include "runtime/host/sid_text.h"

#include <gtest/gtest.h>

namespace {

TEST(SidText, TextAndSidAreOneAnother) {
    for (const wchar_t* text :
         {L"S-1-5-32-544", L"S-1-1-0", L"S-1-5-21-4294967295-0-1-1001", L"S-1-4294967295-7",
          L"S-1-0x010203040506-7", L"S-1-0-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15"}) {
        const auto sid = host::sidOf(text);
        ASSERT_TRUE(sid) << host::sidText(host::Sid{}).size();
        EXPECT_EQ(host::sidText(*sid), text);
    }
}

TEST(SidText, IsReadInEveryWriting) {
    EXPECT_EQ(host::sidOf(L"s-1-5-032-544"), host::sidOf(L"S-1-5-32-544"));
    EXPECT_EQ(host::sidOf(L"S-1-0x5-32-544"), host::sidOf(L"S-1-5-32-544"));
    EXPECT_EQ(host::sidOf(L"S-1-1108152157446-7"), host::sidOf(L"S-1-0x010203040506-7"));
}

TEST(SidText, WhatIsNoSidTextIsNoSid) {
    for (const wchar_t* text : {L"",
                                L"S",
                                L"S-",
                                L"S-1",
                                L"S-1-",
                                L"S-1-5",
                                L"S-1-5-",
                                L"S-1-5-x",
                                L"S-2-5-1",
                                L"S-256-5-1",
                                L"S-1--1",
                                L"S-1-5-4294967296",
                                L"S-1-281474976710656-1",
                                L"S-1-0x1000000000000-1",
                                L"S-1-0x-1",
                                L"S-1-5-1x",
                                L"S-1-5-1 ",
                                L" S-1-5-1",
                                L"alice",
                                L"S-1-5-1-2-3-4-5-6-7-8-9-10-11-12-13-14-15-16"}) {
        EXPECT_FALSE(host::sidOf(text)) << std::wstring(text).size();
    }
}

TEST(SidText, WhoWritesLikeASidMeansOne) {
    EXPECT_TRUE(host::looksLikeSid(L"s-1-x"));
    EXPECT_TRUE(host::looksLikeSid(L"S-1-"));
    EXPECT_FALSE(host::looksLikeSid(L"S-1"));
    EXPECT_FALSE(host::looksLikeSid(L"S-15-7"));
}

}  // namespace
