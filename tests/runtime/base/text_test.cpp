#include <gtest/gtest.h>

#include "runtime/base/QVErrno.h"
#include "runtime/base/QVVersion.h"
#include "runtime/base/dotted_version.h"
#include "runtime/base/fact_lines.h"
#include "runtime/base/size_text.h"

namespace {

TEST(SizeText, TakesTheLargestUnit) {
    EXPECT_EQ(sizeText(0), L"0 bytes");
    EXPECT_EQ(sizeText(1), L"1 byte");
    EXPECT_EQ(sizeText(1023), L"1023 bytes");
    EXPECT_EQ(sizeText(1024), L"1 KB");
    EXPECT_EQ(sizeText(500ULL << 20), L"500 MB");
    EXPECT_EQ(sizeText(1536ULL << 30), L"1.5 TB");
    EXPECT_EQ(sizeText((1024ULL << 30) - 1), L"1023.9 GB");
    EXPECT_EQ(sizeText(0xFFFFFFFFFFFFFFFFULL), L"16777215.9 TB");
}

TEST(SizeText, ExactFormNamesTheBytes) {
    EXPECT_EQ(exactSizeText(524288000), L"500 MB (524288000 bytes)");
    EXPECT_EQ(exactSizeText(17), L"17 bytes");
}

TEST(DottedVersion, ReadsUpToFourNumbers) {
    EXPECT_EQ(parseDottedVersion(L"6.1.5.2"), (DottedVersion{6, 1, 5, 2}));
    EXPECT_EQ(parseDottedVersion(L" 6.1 "), (DottedVersion{6, 1, 0, 0}));
    EXPECT_EQ(parseDottedVersion(L"4294967295"), (DottedVersion{4294967295U, 0, 0, 0}));
}

TEST(DottedVersion, RefusesEverythingElse) {
    for (const wchar_t* text : {L"", L" ", L".", L"6.", L".1", L"6..1", L"6.1.5.2.", L"6.1.5.2.1", L"6.x",
                                L"-1", L"6.1a", L"4294967296", L"99999999999999999999999"}) {
        EXPECT_FALSE(parseDottedVersion(text)) << CString(text).GetLength();
    }
}

TEST(DottedVersion, ComparesNumberByNumber) {
    EXPECT_LT((DottedVersion{6, 9, 0, 0}), (DottedVersion{6, 10, 0, 0}));
}

TEST(QVVersion, UnpacksOneByteAField) {
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0x06010502), L"6.1.5.2");
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0), L"0.0.0.0");
    EXPECT_EQ(QVVersion::mf_VersionNumberToVersionString(0xFFFFFFFF), L"255.255.255.255");
}

TEST(QVVersion, PacksWhatItUnpacks) {
    EXPECT_EQ(QVVersion::pack({6, 1, 5, 2}), 0x06010502UL);
}

TEST(QVVersion, AFieldBeyondAByteIsAnErrorThatNamesTheVersion) {
    try {
        QVVersion::pack({6, 1, 22631, 2});
        FAIL();
    } catch (QVErrno& error) {
        EXPECT_NE(error.mf_toString().units().find(L"6.1.22631.2"), std::wstring::npos);
    }
}

TEST(FactLines, AlignsFactsAndEndsWithoutLineBreak) {
    FactLines lines(L"  ", 8);
    EXPECT_EQ(lines.text(), L"");
    lines.add(L"One:", L"1");
    lines.add(L"A long label:", L"2");
    EXPECT_EQ(lines.text(), L"  One:    1\r\n  A long label:2");
}

TEST(FactLines, AFactStaysInItsLine) {
    FactLines lines(L"", 6);
    lines.add(L"Label:",
              L"a\r\nb\x1B[2J\x7F"
              L"\u0085"
              L"c");
    EXPECT_EQ(lines.text(), L"Label:a  b [2J  c");
}

}  // namespace
