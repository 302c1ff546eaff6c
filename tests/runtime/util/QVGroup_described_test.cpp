#include "runtime/util/QVGroup.h"

#include "tests/runtime/error_of.h"
#include "tests/runtime/util/account_names.h"
#include "tests/runtime/util/described_domain.h"

namespace {

using Names = std::vector<std::wstring>;

const std::string domain = "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\npage size = 2\n";

class QVGroupTest : public DescribedDomain {
protected:
    OwnedArray<QVGroup> m_groups;
};

TEST_F(QVGroupTest, ListsTheComputersGroupsInTheSystemsOrder) {
    describe("[system]\ncomputer = WS01\n[groups]\nWriters\nAdministrators (BUILTIN)\n");
    EXPECT_NE(QVGroup::mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(takeNames(m_groups), (Names{L"WS01\\Writers", L"BUILTIN\\Administrators"}));
}

TEST_F(QVGroupTest, AListThatFailsIsEmptyHoweverFarItWasRead) {
    describe("[groups]\nWriters\n! error 5\n");
    EXPECT_EQ(QVGroup::mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
    describe("[groups]\nA\nB\nC\n! error 2221 after 2\n");
    EXPECT_EQ(QVGroup::mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
}

TEST_F(QVGroupTest, ListsTheDomainsGroupsOverAllPagesButNotItsGlobalOnes) {
    startOn(domain + "[domain groups]\nA\nB\nC\nD\nE\n[global groups]\nDomain Users\n");
    EXPECT_NE(QVGroup::mf_getDomainLocalGroupList(m_groups), 0);
    EXPECT_EQ(takeNames(m_groups), (Names{L"CORP\\A", L"CORP\\B", L"CORP\\C", L"CORP\\D", L"CORP\\E"}));
}

TEST_F(QVGroupTest, ADomainsListThatFailsIsEmpty) {
    startOn(domain + "[domain groups]\nA\nB\nC\nD\nE\n! error 2221 after 3\n");
    EXPECT_EQ(QVGroup::mf_getDomainLocalGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
    startOn(domain + "reachable = no\n[domain groups]\nA\n");
    EXPECT_EQ(QVGroup::mf_getDomainLocalGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
}

TEST_F(QVGroupTest, TheDomainIsNotAskedUnlessItsInstanceWasStarted) {
    describe(domain + "[domain groups]\nA\n");
    EXPECT_NE(errorOf([this] { QVGroup::mf_getDomainLocalGroupList(m_groups); }), L"");
    EXPECT_EQ(m_groups.GetSize(), 0);
}

}  // namespace
