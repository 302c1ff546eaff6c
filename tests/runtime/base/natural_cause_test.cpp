#include "runtime/base/natural_cause.h"

#include <gtest/gtest.h>

#include "tests/runtime/logged.h"

namespace {

using Reply = host::Answer<host::Done>;

const std::wstring denied = L", system error 5: " + host::systemErrorText(5);

TEST(ReasonText, IsThatOfAnError) {
    EXPECT_EQ(reasonText(Reply::refused(5), L"the list cannot be read"),
              L"System call failed: the list cannot be read" + denied);
    EXPECT_EQ(reasonText(Reply::failed(0, L"no progress"), L"the list cannot be read"),
              L"Operation failed: the list cannot be read: no progress");
}

TEST(UnknownFact, TellsWhyItIsUnknown) {
    EXPECT_EQ(unknownFact(Reply::refused(5)), L"unknown" + denied);
    EXPECT_EQ(unknownFact(Reply::missing()), L"unknown");
    EXPECT_EQ(unknownFact(Reply::failed(5, L"its words"), L"not told"), L"not told: its words" + denied);
}

TEST(LogNaturalCause, IsAWarningOfTheOperation) {
    const std::string log = logOf([] {
        logNaturalCause(L"QVUser::mf_list", Reply::failed(0, L"no progress"), L"the list cannot be read");
    });
    EXPECT_TRUE(
        log.ends_with("] W QVUser::mf_list: Operation failed: the list cannot be read: no progress\r\n"))
        << log;
}

}  // namespace
