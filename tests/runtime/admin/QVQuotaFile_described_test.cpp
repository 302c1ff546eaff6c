#include "runtime/admin/QVQuotaFile.h"

#include <fstream>

#include "tests/files.h"
#include "tests/runtime/error_of.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

const char* const computer = R"(
[system]
computer = WS01
[users]
alice = S-1-5-21-1-2-3-1001
bob = S-1-5-21-1-2-3-1002
[groups]
Users (BUILTIN) = alice
Staff S-1-5-21-1-2-3-2001 = bob
)";

class QVQuotaFileTest : public DescribedMachine {
protected:
    /// A quota file C:\quota.cfg with this text.
    void describeFile(const std::string& text) { describe(computer + ("[contents C:\\quota.cfg]\n" + text)); }

    static std::wstring parseError(QVQuotaFile& file) {
        return errorOf([&] { file.mf_parse(); });
    }

    void expectMistake(const std::string& text, const wchar_t* what) {
        describeFile(text);
        QVQuotaFile file(L"C:\\quota.cfg");
        EXPECT_EQ(parseError(file), std::wstring(L"Operation failed: C:\\quota.cfg, line ") + what);
    }
};

TEST_F(QVQuotaFileTest, ReadsItsEntriesInOrder) {
    describeFile("group Staff = 1\nuser bob = 2\nuser alice = 3\ndefault = 4\ngroup BUILTIN\\Users = 5\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    EXPECT_EQ(file.mf_getPath(), L"C:\\quota.cfg");
    EXPECT_EQ(file.mf_getDefaultQuota(), nullptr);
    file.mf_parse();
    ASSERT_EQ(file.mf_getUserQuotas().GetSize(), 2);
    EXPECT_EQ(file.mf_getUserQuotas()[0]->mf_getSid().mf_getFullName(), L"WS01\\bob");
    EXPECT_EQ(file.mf_getUserQuotas()[0]->mf_getSid().mf_getSidString(), L"S-1-5-21-1-2-3-1002");
    EXPECT_EQ(file.mf_getUserQuotas()[0]->mf_getQuota(), QVQuota::ofBytes(2));
    EXPECT_EQ(file.mf_getUserQuotas()[1]->mf_getSid().mf_getFullName(), L"WS01\\alice");
    ASSERT_EQ(file.mf_getGroupQuotas().GetSize(), 2);
    EXPECT_EQ(file.mf_getGroupQuotas()[0]->mf_getSid().mf_getFullName(), L"WS01\\Staff");
    EXPECT_EQ(file.mf_getGroupQuotas()[1]->mf_getSid().mf_getSidString(), L"S-1-5-32-545");
    ASSERT_NE(file.mf_getDefaultQuota(), nullptr);
    EXPECT_EQ(*file.mf_getDefaultQuota(), QVQuota::ofBytes(4));
}

TEST_F(QVQuotaFileTest, AnEmptyFileHasNoEntries) {
    describeFile("");
    QVQuotaFile file(L"C:\\quota.cfg");
    file.mf_parse();
    EXPECT_EQ(file.mf_getUserQuotas().GetSize(), 0);
    EXPECT_EQ(file.mf_getGroupQuotas().GetSize(), 0);
    EXPECT_EQ(file.mf_getDefaultQuota(), nullptr);
}

TEST_F(QVQuotaFileTest, ReadsASecondTimeAfresh) {
    describeFile("user alice = 1\ndefault = 2\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    file.mf_parse();
    file.mf_parse();
    EXPECT_EQ(file.mf_getUserQuotas().GetSize(), 1);
}

TEST_F(QVQuotaFileTest, KeepsWhatWasReadBeforeAMistakeUntilItIsCleared) {
    describeFile("user alice = 1\ngroup Staff = 2\ndefault = 3\nnonsense\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    EXPECT_THROW(file.mf_parse(), QVErrno);
    EXPECT_EQ(file.mf_getUserQuotas().GetSize(), 1);
    EXPECT_EQ(file.mf_getGroupQuotas().GetSize(), 1);
    EXPECT_NE(file.mf_getDefaultQuota(), nullptr);
    file.mf_clear();
    EXPECT_EQ(file.mf_getUserQuotas().GetSize(), 0);
    EXPECT_EQ(file.mf_getGroupQuotas().GetSize(), 0);
    EXPECT_EQ(file.mf_getDefaultQuota(), nullptr);
    file.mf_clear();
}

TEST_F(QVQuotaFileTest, AMistakeNamesFileAndLine) {
    expectMistake("# quotas\n\nuser alice 1\n",
                  L"3: \"1\" comes where \"=\" was expected; an account with blanks stands in quotes");
    expectMistake("user S-1-5-x = 1\n", L"1: \"S-1-5-x\" is no SID, expected one like S-1-5-32-545");
    expectMistake("user \"S-1-5-32-545 \" = 1\n",
                  L"1: \"S-1-5-32-545 \" is no SID, expected one like S-1-5-32-545");
}

TEST_F(QVQuotaFileTest, ASecondDefaultIsAMistake) {
    expectMistake("default = 1\nuser alice = 1\ndefault = 1\n",
                  L"3: the default quota was already given in line 1, expected it once");
}

TEST_F(QVQuotaFileTest, AnAccountGivenTwiceIsAMistakeHoweverItIsWritten) {
    expectMistake("user alice = 1\nuser WS01\\ALICE = 2\n",
                  L"2: the account \"WS01\\alice\" was already given in line 1, expected it once");
    expectMistake("group Staff = 1\n#\ngroup S-1-5-21-1-2-3-2001 = 2\n",
                  L"3: the account \"WS01\\Staff\" was already given in line 1, expected it once");
    expectMistake("user Staff = 1\ngroup Staff = 1\n",
                  L"2: the account \"WS01\\Staff\" was already given in line 1, expected it once");
    expectMistake("user CORP\\gone = 1\nuser corp\\GONE = 2\n",
                  L"2: the account \"corp\\GONE\" was already given in line 1, expected it once");
}

TEST_F(QVQuotaFileTest, AnUnknownNameStaysAsItIsWritten) {
    describeFile("user CORP\\Gone = 1\nuser \"somebody else\" = 2\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    file.mf_parse();
    const QVSid& gone = file.mf_getUserQuotas()[0]->mf_getSid();
    EXPECT_EQ(gone.mf_getFullName(), L"CORP\\Gone");
    EXPECT_THROW(gone.mf_getSidString(), QVErrno);
    EXPECT_EQ(file.mf_getUserQuotas()[1]->mf_getSid().mf_getFullName(), L"somebody else");
}

TEST_F(QVQuotaFileTest, AnUnknownSidIsItsOwnName) {
    describeFile("user s-1-5-21-7-7-7-7 = 1\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    file.mf_parse();
    const QVSid& orphan = file.mf_getUserQuotas()[0]->mf_getSid();
    EXPECT_EQ(orphan.mf_getFullName(), L"S-1-5-21-7-7-7-7");
    EXPECT_EQ(orphan.mf_getSidString(), L"S-1-5-21-7-7-7-7");
}

TEST_F(QVQuotaFileTest, AControllerOutOfReachDoesNotFailTheParse) {
    describe(std::string(computer) +
             "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\nreachable = no 1722\n"
             "[contents C:\\quota.cfg]\nuser CORP\\dora = 1\nuser alice = 2\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    file.mf_parse();
    EXPECT_FALSE(file.mf_getUserQuotas()[0]->asked());
    EXPECT_EQ(file.mf_getUserQuotas()[0]->mf_getSid().mf_getFullName(), L"CORP\\dora");
    EXPECT_TRUE(file.mf_getUserQuotas()[1]->asked());
}

TEST_F(QVQuotaFileTest, AMissingFileIsASystemError) {
    describe(computer);
    QVQuotaFile file(L"C:\\quota.cfg");
    try {
        file.mf_parse();
        FAIL();
    } catch (QVErrno& error) {
        EXPECT_EQ(error.mf_getData().mf_getValue(), QVErrno::_E_::System.value());
        EXPECT_NE(error.mf_toString().units().find(L"'C:\\quota.cfg' cannot be read, system error 2: "),
                  std::wstring::npos);
    }
}

TEST_F(QVQuotaFileTest, ARefusedFileKeepsItsCode) {
    describe(std::string(computer) + "[files]\n! refused C:\\quota.cfg\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    EXPECT_TRUE(holds(parseError(file), L"'C:\\quota.cfg' cannot be read, system error 5: "));
}

TEST_F(QVQuotaFileTest, ADirectoryIsNoFile) {
    describe(std::string(computer) + "[files]\nC:\\quota.cfg\\below.txt\n");
    QVQuotaFile file(L"C:\\quota.cfg");
    EXPECT_TRUE(holds(parseError(file), L"'C:\\quota.cfg' cannot be read"));
}

TEST_F(QVQuotaFileTest, AFileAbove16MiBIsAnError) {
    describe(computer);
    const TemporaryDirectory here;
    const std::string line = "#" + std::string(1024 * 1024 - 2, 'x') + "\n";
    std::ofstream bytes("large.cfg", std::ios::binary);
    for (int i = 0; i < 16; ++i)
        bytes << line;
    bytes.flush();
    QVQuotaFile file(L"large.cfg");
    EXPECT_EQ(parseError(file), L"");
    bytes << '#' << std::flush;
    EXPECT_TRUE(holds(parseError(file), L"'large.cfg' cannot be read: "));
}

class QVQuotaFileNameTest : public DescribedMachine {
protected:
    CString nameWith(const std::string& value) {
        describe("[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient]\n" +
                 value + "\n");
        return QVQuotaFile::mf_getConfigFileName();
    }

    static std::wstring parseErrorOfRelativeName() {
        QVQuotaFile file(L"config\\quota.cfg");
        return errorOf([&] { file.mf_parse(); });
    }
};

TEST_F(QVQuotaFileNameTest, StandsInTheInstallationDirectory) {
    EXPECT_EQ(nameWith(R"("Path"="C:\\hsm")"), L"C:\\hsm\\config\\quota.cfg");
    EXPECT_EQ(nameWith(R"("Path"="C:\\hsm\\")"), L"C:\\hsm\\config\\quota.cfg");
    EXPECT_EQ(nameWith(R"("Path"="C:\\hsm\\\\")"), L"C:\\hsm\\config\\quota.cfg");
    EXPECT_EQ(nameWith(R"("Path"="C:\\")"), L"C:\\config\\quota.cfg");
}

TEST_F(QVQuotaFileNameTest, IsRelativeWhereTheDirectoryIsUnknown) {
    EXPECT_EQ(nameWith(""), L"config\\quota.cfg");
    EXPECT_TRUE(holds(parseErrorOfRelativeName(),
                      L"the installation directory is unknown: the registry value "
                      L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient\\Path is missing"));
    EXPECT_EQ(nameWith(R"("Path"="")"), L"config\\quota.cfg");
    EXPECT_TRUE(holds(parseErrorOfRelativeName(),
                      L"the installation directory is unknown: the registry value Path is empty"));
    EXPECT_EQ(nameWith(R"("Path"=dword:00000001)"), L"config\\quota.cfg");
    EXPECT_TRUE(holds(parseErrorOfRelativeName(), L"the registry value Path is of type REG_DWORD"));
    EXPECT_EQ(nameWith(R"("Path"=refused)"), L"config\\quota.cfg");
    EXPECT_TRUE(
        holds(parseErrorOfRelativeName(), L"the installation directory is unknown, system error 5: "));
}

TEST_F(QVQuotaFileNameTest, ARelativeFileIsNeverRead) {
    nameWith(R"("Path"="C:\\hsm")");
    EXPECT_TRUE(holds(parseErrorOfRelativeName(), L"the installation directory is unknown"));
}

TEST_F(QVQuotaFileNameTest, PlannedFailuresAreThrown) {
    describe(
        "[failures]\n"
        "QVQuotaFile::mf_getConfigFileName : error System 5\n"
        "QVQuotaFile::QVQuotaFile \"bad.cfg\" : error Unspecific\n"
        "QVQuotaFile::mf_clear : error Unspecific\n"
        "QVConfigFileBase::mf_parse \"quota.cfg\" : answer 0\n");
    EXPECT_THROW(QVQuotaFile::mf_getConfigFileName(), QVErrno);
    EXPECT_THROW(QVQuotaFile(L"C:\\bad.cfg"), QVErrno);
    QVQuotaFile file(L"C:\\quota.cfg");
    EXPECT_NO_THROW(file.mf_parse());
    EXPECT_THROW(file.mf_clear(), QVErrno);
}

}  // namespace
