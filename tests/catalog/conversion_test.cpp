#include "catalog/conversion.h"

#include <gtest/gtest.h>

namespace {

using conversion::Kind;
using conversion::parse;

TEST(Conversion, HasTheKindOfItsLetter) {
    EXPECT_EQ(parse(L"%s").kind, Kind::text);
    EXPECT_EQ(parse(L"%c").kind, Kind::character);
    EXPECT_EQ(parse(L"%d").kind, Kind::signedNumber);
    EXPECT_EQ(parse(L"%i").kind, Kind::signedNumber);
    EXPECT_EQ(parse(L"%u").kind, Kind::unsignedNumber);
    EXPECT_EQ(parse(L"%x").kind, Kind::lowerHex);
    EXPECT_EQ(parse(L"%X").kind, Kind::upperHex);
    EXPECT_EQ(parse(L"%%").kind, Kind::percent);
    EXPECT_EQ(parse(L"%%").length, 2U);
}

TEST(Conversion, HasFlagsWidthAndPrecision) {
    const conversion::Conversion found = parse(L"%-+ #08.3lu more");
    EXPECT_EQ(found.kind, Kind::unsignedNumber);
    EXPECT_TRUE(found.leftAligned && found.plusSign && found.blankSign && found.alternate &&
                found.zeroPadded);
    EXPECT_EQ(found.width, 8);
    EXPECT_EQ(found.precision, 3);
    EXPECT_EQ(found.length, 11U);
    const conversion::Conversion plain = parse(L"%s");
    EXPECT_FALSE(plain.leftAligned || plain.plusSign || plain.blankSign || plain.alternate ||
                 plain.zeroPadded);
    EXPECT_EQ(plain.width, 0);
    EXPECT_EQ(plain.precision, -1);
    EXPECT_EQ(plain.length, 2U);
    EXPECT_EQ(parse(L"%.s").precision, 0);
}

TEST(Conversion, LengthModifiersMakeNoDifference) {
    for (const wchar_t* text : {L"%hu", L"%lu", L"%llu", L"%wu"})
        EXPECT_EQ(parse(text).kind, Kind::unsignedNumber) << text;
}

TEST(Conversion, WhatIsUnknownIsNone) {
    for (const wchar_t* text : {L"%n", L"%*s", L"%f", L"%", L"% ", L"%p", L"%4097s", L"%.4097s"}) {
        EXPECT_EQ(parse(text).kind, Kind::none) << text;
        EXPECT_EQ(parse(text).length, 0U) << text;
    }
    EXPECT_EQ(parse(L"%4096s").width, 4096);
}

}  // namespace
