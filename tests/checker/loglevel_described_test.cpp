#include <string>
#include <vector>

#include "checker/QVInstallationChecker.h"
#include "runtime/base/QVString.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

constexpr const wchar_t* keyPath = L"SOFTWARE\\Made\\Up";
constexpr unsigned long untouched = 4711;

/// What a report of a level leaves, begun with values that no report leaves by itself.
struct Shown {
    CString text;
    unsigned long level = untouched;
    int problem = 0;
};

/// How a machine has the level of a program, the message that tells so, and what it leaves.
struct Case {
    std::string description;
    CString text;
    unsigned long level;
    int problem;
};

class LogLevel : public DescribedMachine {
protected:
    static void describeLevel(const std::string& description) {
        describe("[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Made\\Up]\n" + description);
    }

    static Shown show(int problemBefore) {
        QVInstallationChecker checker;
        Shown shown;
        shown.problem = problemBefore;
        shown.text = checker.mf_getLogLevel(keyPath, L"Level", L"program", &shown.level, &shown.problem);
        return shown;
    }

    /// Levels S and T are on.
    static CString levelsSAndT() {
        return QVString(3304, L'x') + QVString(3299, L'.') + QVString(3306, L'.') + QVString(3302, L'.') +
               QVString(3305, L'x') + QVString(3297, L'.') + QVString(3303, L'.') + QVString(3300, L'.') +
               QVString(3301, L'.') + QVString(3298, L'.');
    }

    static std::vector<Case> cases() {
        const std::string present = "\"Level\"=dword:80000011\n";
        return {
            {present, levelsSAndT(), 0x80000011UL, 0},
            {"\"Other\"=dword:80000011\n", QVString(3309, L"program", keyPath, L"Level"), untouched, 1},
            {"\"Level\"=\"17\"\n", QVString(3310, L"program", keyPath, L"Level"), untouched, 1},
            {present + "[failures]\nQVRegistry::mf_getValue \"Up\\Level\" : error System 5\n",
             QVString(3310, L"program", keyPath, L"Level"), untouched, 1},
            {present + "[failures]\nQVRegistry::mf_exists \"Up\\Level\" : error System 5\n",
             QVString(3307, keyPath, L"Level"), untouched, 1},
        };
    }
};

TEST_F(LogLevel, IsHandedOutOnlyWhenItWasRead) {
    for (const Case& one : cases()) {
        SCOPED_TRACE(one.description);
        describeLevel(one.description);
        for (const int problemBefore : {0, 1}) {
            const Shown shown = show(problemBefore);
            EXPECT_EQ(shown.text, one.text);
            EXPECT_EQ(shown.level, one.level);
            EXPECT_EQ(shown.problem, one.problem);
        }
    }
}

TEST_F(LogLevel, NeedsNoPlaceForTheLevel) {
    for (const Case& one : cases()) {
        SCOPED_TRACE(one.description);
        describeLevel(one.description);
        QVInstallationChecker checker;
        int problem = 7;
        EXPECT_EQ(checker.mf_getLogLevel(keyPath, L"Level", L"program", nullptr, &problem), one.text);
        EXPECT_EQ(problem, one.problem);
    }
}

TEST_F(LogLevel, TheOwnLevelIsShownLikeTheOthers) {
    for (const Case& one : cases()) {
        SCOPED_TRACE(one.description);
        describeLevel(one.description);
        for (const int problemBefore : {0, 1}) {
            QVInstallationChecker checker;
            int problem = problemBefore;
            EXPECT_EQ(checker.mf_implGetOwnLogLevel(keyPath, L"Level", L"program", &problem), one.text);
            EXPECT_EQ(problem, one.problem);
        }
    }
}

}  // namespace
