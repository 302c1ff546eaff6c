#include "runtime/base/QVErrno.h"

#include <gtest/gtest.h>

#include <set>

#include "runtime/host/answer.h"
#include "runtime/host/host.h"

namespace {

TEST(QVErrnoData, DefaultHoldsNoError) {
    EXPECT_EQ(QVErrnoData().mf_getValue(), 0U);
    EXPECT_STREQ(QVErrnoData().mf_getOriginatorMessage(), L"");
}

TEST(QVErrnoData, EveryCategoryHasItsOwnValue) {
    std::set<std::uint32_t> values;
    for (const QVErrnoValue& category :
         {QVErrno::_E_::Unknown, QVErrno::_E_::System, QVErrno::_E_::Memory, QVErrno::_E_::Path,
          QVErrno::_E_::BufferTooSmall, QVErrno::_E_::Unspecific}) {
        const QVErrnoData data(category);
        EXPECT_NE(data.mf_getValue(), 0U);
        EXPECT_NE(data.mf_getValue(), 12U);
        values.insert(data.mf_getValue());
    }
    EXPECT_EQ(values, (std::set<std::uint32_t>{1, 2, 3, 4, 5, 6}));
}

TEST(QVErrnoData, AssignedFromACaughtErrorHoldsIt) {
    QVErrnoData data;
    try {
        raise(QVErrno::_E_::Path, L"somewhere", 3);
    } catch (QVErrno& error) {
        data = error.mf_getData();
    }
    EXPECT_EQ(data.mf_getValue(), 4U);
    EXPECT_STREQ(data.mf_getOriginatorMessage(), L"somewhere");
}

TEST(QVErrnoData, CopiesAreIndependent) {
    QVErrnoData original(QVErrno::_E_::System, L"first");
    QVErrnoData copy = original;
    QVErrnoData::mf_setMessage(copy, L"QRM27047E", 1, 2, 3, 4, L"changed");
    EXPECT_EQ(original.mf_getMessage(), L"System call failed");
    EXPECT_EQ(copy.mf_getMessage(), L"QRM27047E: changed");
}

TEST(QVErrnoData, MessageWithAnEmptyInsertIsComplete) {
    QVErrnoData data(QVErrno::_E_::System);
    QVErrnoData::mf_setMessage(data, L"QRM27047E", 1, 2, 3, 4, L"");
    EXPECT_EQ(QVErrno(data).mf_toString(), L"QRM27047E: System call failed");
}

TEST(QVErrnoData, OriginatorMessageAsInsertIsToldOnce) {
    QVErrnoData data(QVErrno::_E_::System, L"the log cannot be opened");
    QVErrnoData::mf_setMessage(data, L"QRM27047E", 1, 2, 3, 4, data.mf_getOriginatorMessage());
    EXPECT_EQ(QVErrno(data, 5).mf_toString(),
              L"QRM27047E: the log cannot be opened, system error 5: " + CString(host::systemErrorText(5)));
    EXPECT_STREQ(data.mf_getOriginatorMessage(), L"the log cannot be opened");
}

static_assert(noexcept(std::declval<const QVErrnoData&>().mf_getOriginatorMessage()));
static_assert(noexcept(std::declval<const QVErrno&>().mf_toString()));

TEST(QVErrno, TextJoinsMessageOriginatorAndSystemText) {
    EXPECT_EQ(QVErrno(QVErrnoData(QVErrno::_E_::Memory)).mf_toString(), L"Not enough memory");
    EXPECT_EQ(QVErrno(QVErrnoData(QVErrno::_E_::Unspecific, L"no such thing")).mf_toString(),
              L"Operation failed: no such thing");
    const CString systemText(host::systemErrorText(5));
    EXPECT_FALSE(systemText.IsEmpty());
    EXPECT_EQ(QVErrno(QVErrnoData(QVErrno::_E_::System), 5).mf_toString(),
              L"System call failed, system error 5: " + systemText);
    EXPECT_EQ(QVErrno(QVErrnoData(QVErrno::_E_::System, L"reading"), 5).mf_toString(),
              L"System call failed: reading, system error 5: " + systemText);
}

TEST(QVErrno, TextIsOneLineWhateverItWasGiven) {
    EXPECT_EQ(QVErrno(QVErrnoData(QVErrno::_E_::System, L"one\r\ntwo\n")).mf_toString(),
              L"System call failed: one  two");
}

TEST(QVErrno, ANewErrorFromACaughtRecordKeepsTheSystemError) {
    const QVErrno first(QVErrnoData(QVErrno::_E_::System, L"reading"), 5);
    EXPECT_EQ(QVErrno(first.mf_getData()).mf_toString(), first.mf_toString());
}

TEST(Raise, AHostsFailureBecomesASystemError) {
    try {
        raise(host::Failure{5, L"its words"}, L"the key cannot be read");
        FAIL();
    } catch (QVErrno& error) {
        EXPECT_EQ(error.mf_getData().mf_getValue(), QVErrno::_E_::System.value());
        EXPECT_STREQ(error.mf_getData().mf_getOriginatorMessage(), L"the key cannot be read: its words");
    }
    try {
        raise(host::Failure{0, L"no progress"}, L"list");
        FAIL();
    } catch (QVErrno& error) {
        EXPECT_EQ(error.mf_getData().mf_getValue(), QVErrno::_E_::Unspecific.value());
        EXPECT_EQ(error.mf_toString(), L"Operation failed: list: no progress");
    }
}

TEST(QVErrno, LargeCodesStandInHexadecimal) {
    const auto textOf = [](std::uint32_t code) {
        return QVErrno(QVErrnoData(QVErrno::_E_::System), code).mf_toString().units();
    };
    EXPECT_TRUE(textOf(0x7FFFFFFFU).starts_with(L"System call failed, system error 2147483647: "))
        << testing::PrintToString(textOf(0x7FFFFFFFU));
    EXPECT_TRUE(textOf(0x80310000U).starts_with(L"System call failed, system error 0x80310000: "))
        << testing::PrintToString(textOf(0x80310000U));
}

}  // namespace
