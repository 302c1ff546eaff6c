/// The machines that come with the project.

#include "runtime/host/host.h"
#include "tests/project_folder.h"
#include "tests/runtime/host/description/machine_fixture.h"
#include "tests/runtime/host/domain_named.h"

namespace {

class Machines : public DescribedMachine {
protected:
    static void examine(const char* name) {
        const auto mistakes =
            description::load(description::RealFiles(), projectFolder() / "machines" / name);
        EXPECT_EQ(mistakes.report(), "");
    }
};

const std::wstring currentVersion = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\";

}  // namespace

TEST_F(Machines, AllHoldNoMistake) {
    int count = 0;
    for (const auto& folder : std::filesystem::directory_iterator(projectFolder() / "machines")) {
        if (!std::filesystem::exists(folder.path() / "machine.txt")) continue;
        const auto mistakes = description::load(description::RealFiles(), folder.path());
        EXPECT_EQ(mistakes.report(), "") << folder.path();
        ++count;
    }
    EXPECT_GE(count, 5);
}

TEST_F(Machines, TheSampleIsPartOfTheProgram) {
    EXPECT_EQ(description::load(description::RealFiles(), "sample:machine.txt").report(), "");
    EXPECT_EQ(host::system().value.computerName, L"WS01");
    EXPECT_EQ(host::registryValue(currentVersion + L"HsmClient", L"PtfLevel").value.text, L"6.1.5.2");
    EXPECT_TRUE(host::fileKind(L"C:\\Program Files\\Norvel\\HsmClient\\kvxclc.exe").found());
    EXPECT_FALSE(host::verdictsArePlanned());
}

TEST_F(Machines, TheSampleIsABase) {
    describe("[machine]\nbase = sample\n[system]\nrelease = 99H9\n");
    EXPECT_EQ(host::system().value.computerName, L"WS01");
    EXPECT_EQ(host::system().value.release, L"99H9");
}

TEST_F(Machines, TheMemberIsJoined) {
    examine("member");
    EXPECT_TRUE(host::membership().value.joined);
    EXPECT_EQ(host::domainController(domainNamed(L"CORP"), true, false).value, L"DC01");
    EXPECT_EQ(host::users({L"DC01"}, 0).value.items.size(), 12U);
}

TEST_F(Machines, TheClusterHasANodeThatIsDown) {
    examine("cluster");
    ASSERT_EQ(host::cluster().value.nodes.size(), 2U);
    EXPECT_EQ(host::cluster().value.nodes[1].state, L"down");
}

TEST_F(Machines, NothingIsInstalledOnTheBareOne) {
    examine("bare");
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Norvel").isMissing());
    EXPECT_TRUE(host::fileKind(L"C:\\Program Files\\Norvel").isMissing());
    EXPECT_TRUE(host::service(L"rkhsmdrv").isMissing());
}

TEST_F(Machines, MuchIsWrongWithTheBrokenOne) {
    examine("broken");
    EXPECT_TRUE(host::registryValue(currentVersion + L"HsmClient\\kvxgui", L"FileSizeMinimum").unanswered());
    EXPECT_EQ(host::registryKey(currentVersion + L"HsmClient\\kvxsvc").failure.code, 1018U);
    EXPECT_TRUE(host::domainController(domainNamed(L"CORP"), true, false).unanswered());
    EXPECT_FALSE(host::service(L"rkhsmdrv").value.running);
}
