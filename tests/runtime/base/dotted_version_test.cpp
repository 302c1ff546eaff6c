#include "runtime/base/dotted_version.h"

#include <gtest/gtest.h>

#include "runtime/base/CString.h"

namespace {

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

}  // namespace
