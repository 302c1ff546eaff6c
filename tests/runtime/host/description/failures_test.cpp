#include "runtime/host/description/failures.h"

#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Kind = host::Verdict::Kind;

class Failures : public DescribedMachine {
protected:
    static Kind verdict(const wchar_t* operation, const std::wstring& subject = L"") {
        return host::verdictOn(operation, subject).kind;
    }
};

constexpr const wchar_t* exists = L"QVPath::mf_exists";

}  // namespace

TEST_F(Failures, NothingIsPlannedWithoutASection) {
    describe("");
    EXPECT_FALSE(host::verdictsArePlanned());
    EXPECT_EQ(verdict(exists, L"C:\\a"), Kind::proceed);
    describe("[failures]\n# nothing\n");
    EXPECT_FALSE(host::verdictsArePlanned());
}

TEST_F(Failures, ErrorsCarryCategoryCodeAndText) {
    describe(
        "[failures]\nQVPath::mf_exists : error path 0x5 \"no \"\"way\"\"\"\n"
        "QVMain::mf_stopStorage : error Unspecific\n"
        "QVMain::mf_stopLogging:error BufferTooSmall \"only text\"\n");
    EXPECT_TRUE(host::verdictsArePlanned());
    const host::Verdict path = host::verdictOn(exists, L"x");
    EXPECT_EQ(path.kind, Kind::fail);
    EXPECT_EQ(path.category, 4U);
    EXPECT_EQ(path.code, 5U);
    EXPECT_EQ(path.text, L"no \"way\"");
    const host::Verdict stop = host::verdictOn(L"QVMain::mf_stopStorage", L"");
    EXPECT_EQ(stop.category, 6U);
    EXPECT_EQ(stop.code, 0U);
    EXPECT_EQ(stop.text, L"");
    const host::Verdict logging = host::verdictOn(L"QVMain::mf_stopLogging", L"");
    EXPECT_EQ(logging.category, 5U);
    EXPECT_EQ(logging.text, L"only text");
}

TEST_F(Failures, TheCategoriesHaveTheirErrorValues) {
    const char* names[] = {"Unknown", "System", "Memory", "Path", "BufferTooSmall", "Unspecific"};
    for (std::uint32_t value = 1; value <= 6; ++value) {
        describe(std::string("[failures]\nQVPath::mf_exists : error ") + names[value - 1] + "\n");
        EXPECT_EQ(host::verdictOn(exists, L"").category, value);
    }
}

TEST_F(Failures, OtherOutcomes) {
    describe("[failures]\nQVPath::mf_exists : answer 0\nQVMain::mf_startStorage : foreign\n");
    EXPECT_EQ(verdict(exists, L"anything"), Kind::answerZero);
    EXPECT_EQ(verdict(L"QVMain::mf_startStorage"), Kind::throwForeign);
    EXPECT_EQ(verdict(L"QVMain::mf_stopStorage"), Kind::proceed);
}

TEST_F(Failures, SubjectsMatchAsAWholeOrAtTheirEnd) {
    describe("[failures]\nQVPath::mf_exists \"HSM\\kvx.opt\" : answer 0\n");
    EXPECT_EQ(verdict(exists, L"HSM\\kvx.opt"), Kind::answerZero);
    EXPECT_EQ(verdict(exists, L"C:\\hsm\\KVX.OPT"), Kind::answerZero);
    EXPECT_EQ(verdict(exists, L"C:\\xHSM\\kvx.opt"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"HSM\\kvx.opt2"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"kvx.opt"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L""), Kind::proceed);
}

TEST_F(Failures, AnEmptySubjectIsASubject) {
    describe("[failures]\nQVPath::mf_exists \"\" : answer 0\n");
    EXPECT_EQ(verdict(exists, L""), Kind::answerZero);
    EXPECT_EQ(verdict(exists, L"a"), Kind::proceed);
}

TEST_F(Failures, OneCall) {
    describe("[failures]\nQVPath::mf_exists call 2 : answer 0\n");
    EXPECT_EQ(verdict(exists, L"a"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"b"), Kind::answerZero);
    EXPECT_EQ(verdict(exists, L"c"), Kind::proceed);
}

TEST_F(Failures, FromACallOn) {
    describe("[failures]\nQVPath::mf_exists from call 2 : answer 0\n");
    EXPECT_EQ(verdict(exists, L"a"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"a"), Kind::answerZero);
    EXPECT_EQ(verdict(exists, L"a"), Kind::answerZero);
}

TEST_F(Failures, OnlyMatchingCallsCount) {
    describe("[failures]\nQVPath::mf_exists \"b\" call 2 : answer 0\n");
    EXPECT_EQ(verdict(exists, L"b"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"a"), Kind::proceed);
    EXPECT_EQ(verdict(L"QVPath::mf_appendFile", L"b"), Kind::proceed);
    EXPECT_EQ(verdict(exists, L"x\\b"), Kind::answerZero);
}

TEST_F(Failures, TheFirstDueOneDecidesAndAllCount) {
    describe(
        "[failures]\nQVPath::mf_exists call 1 : answer 0\nQVPath::mf_exists from call 1 : foreign\n"
        "QVPath::mf_exists call 3 : answer 0\n");
    EXPECT_EQ(verdict(exists), Kind::answerZero);
    EXPECT_EQ(verdict(exists), Kind::throwForeign);
    EXPECT_EQ(verdict(exists), Kind::throwForeign);
}

TEST_F(Failures, CountingBeginsAgainWithTheMachine) {
    for (int run = 0; run < 2; ++run) {
        describe("[failures]\nQVPath::mf_exists call 1 : answer 0\n");
        EXPECT_EQ(verdict(exists), Kind::answerZero);
        EXPECT_EQ(verdict(exists), Kind::proceed);
    }
}

TEST_F(Failures, ClearForgetsThem) {
    describe("[failures]\nQVPath::mf_exists : foreign\n[failures]\nclear\n");
    EXPECT_FALSE(host::verdictsArePlanned());
}
