#include <string>

#include "checker/QVInstallationChecker.h"
#include "runtime/base/QVString.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

CString message(const QVString& text) {
    return text;
}

/// What a check of one file leaves, begun with values that no check leaves by itself.
struct Checked {
    int exists = 7;
    int problem = 0;
    CString missingText = L"m:";
    CString foundText = L"f:";
    int foundCount = 10;
    int missingCount = 20;
};

class InstallationFiles : public DescribedMachine {
protected:
    /// A machine whose HSM client is installed in C:\HSM, and more.
    static void describeInstallation(const std::string& more) {
        describe(
            "[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient]\n"
            "\"Path\"=\"C:\\\\HSM\"\n[files]\nC:\\HSM\\kvxclc.exe\n" +
            more);
    }

    static Checked check(const wchar_t* fileName, int problem = 0) {
        QVInstallationChecker checker;
        Checked result;
        result.problem = problem;
        checker.mf_checkInstallationFile(L"C:\\HSM\\", fileName, &result.exists, &result.problem,
                                         result.missingText, result.foundText, &result.foundCount,
                                         &result.missingCount);
        return result;
    }

    TemporaryDirectory m_here;  // the checker removes a report file
};

}  // namespace

TEST_F(InstallationFiles, AnUnknownDirectoryIsNoProblemOfThisReport) {
    describe("");
    QVInstallationChecker checker;
    int foundCount = 5;
    int missingCount = 5;
    int problem = 5;
    EXPECT_EQ(checker.mf_checkInstallationFiles(&foundCount, &missingCount, &problem),
              message(QVString(3289)));
    EXPECT_EQ(foundCount, 0);
    EXPECT_EQ(missingCount, 39);
    EXPECT_EQ(problem, 0);
}

TEST_F(InstallationFiles, TheMonitorPackageIsNotCounted) {
    std::string found;
    for (const char* name :
         {"kvxmonctl.exe", "kvxscanconv.exe", "kvxmon.exe", "kvxgui.dll", "kvxrsrcmod.dll"}) {
        describeInstallation(found);
        QVInstallationChecker checker;
        int foundCount = 0;
        int missingCount = 0;
        int problem = 0;
        checker.mf_checkInstallationFiles(&foundCount, &missingCount, &problem);
        // The client's program, and the plug-in without a path, which stands for the installation directory.
        EXPECT_EQ(foundCount, 2) << found;
        EXPECT_EQ(missingCount, 37) << found;
        EXPECT_EQ(problem, 1);
        found += std::string("C:\\HSM\\") + name + "\n";
    }
}

TEST_F(InstallationFiles, WhatTheCallerHandsInIsBegunAnew) {
    describeInstallation("");
    QVInstallationChecker checker;
    for (int round = 0; round < 2; ++round) {
        int foundCount = 1000;
        int missingCount = 1000;
        int problem = 1000;
        checker.mf_checkInstallationFiles(&foundCount, &missingCount, &problem);
        EXPECT_EQ(foundCount, 2);
        EXPECT_EQ(missingCount, 37);
        EXPECT_EQ(problem, 1);
    }
}

TEST_F(InstallationFiles, AFoundFile) {
    describeInstallation("");
    const Checked file = check(L"kvxclc.exe");
    EXPECT_EQ(file.exists, 1);
    EXPECT_EQ(file.problem, 0);
    EXPECT_EQ(file.foundText, L"f:" + message(QVString(3330, L"kvxclc.exe")));
    EXPECT_EQ(file.missingText, L"m:");
    EXPECT_EQ(file.foundCount, 11);
    EXPECT_EQ(file.missingCount, 20);
}

TEST_F(InstallationFiles, AMissingFile) {
    describeInstallation("");
    const Checked file = check(L"kvxgui.exe");
    EXPECT_EQ(file.exists, 0);
    EXPECT_EQ(file.problem, 1);
    EXPECT_EQ(file.foundText, L"f:");
    EXPECT_EQ(file.missingText, L"m:" + message(QVString(3319, L"kvxgui.exe")));
    EXPECT_EQ(file.foundCount, 10);
    EXPECT_EQ(file.missingCount, 21);
}

TEST_F(InstallationFiles, ARefusedFile) {
    describeInstallation("! refused C:\\HSM\\kvxclc.exe\n");
    const Checked file = check(L"kvxclc.exe");
    EXPECT_EQ(file.exists, 0);
    EXPECT_EQ(file.problem, 1);
    EXPECT_EQ(file.foundText, L"f:");
    EXPECT_EQ(file.missingText, L"m:" + message(QVString(3320, L"kvxclc.exe")));
    EXPECT_EQ(file.foundCount, 10);
    EXPECT_EQ(file.missingCount, 21);
}

TEST_F(InstallationFiles, AProblemOfAnEarlierFileStays) {
    describeInstallation("");
    EXPECT_EQ(check(L"kvxclc.exe", 1).problem, 1);
    EXPECT_EQ(check(L"kvxgui.exe", 1).problem, 1);
}

TEST_F(InstallationFiles, AFileIsLookedForEvenWhereItsPathCannotBeResolved) {
    describeInstallation("[failures]\nQVPath::mf_getAbsolutePath : error Path 3\n");
    const Checked file = check(L"kvxclc.exe");
    EXPECT_EQ(file.exists, 1);
    EXPECT_EQ(file.problem, 0);
    EXPECT_EQ(file.foundCount, 11);
    EXPECT_EQ(file.missingCount, 20);
}

TEST(Padded, TakesAtLeastThreeColumns) {
    EXPECT_EQ(padded(0), L"  0");
    EXPECT_EQ(padded(7), L"  7");
    EXPECT_EQ(padded(39), L" 39");
    EXPECT_EQ(padded(100), L"100");
    EXPECT_EQ(padded(1000), L"1000");
}
