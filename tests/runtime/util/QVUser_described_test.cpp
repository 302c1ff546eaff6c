#include "runtime/util/QVUser.h"

#include "runtime/host/host.h"
#include "tests/runtime/error_of.h"
#include "tests/runtime/logged.h"
#include "tests/runtime/util/account_names.h"
#include "tests/runtime/util/described_domain.h"

namespace {

using Names = std::vector<std::wstring>;

const std::string domain = "[domain]\njoined = yes\nname = CORP\ncontroller = DC01\npage size = 10\n";

class QVUserTest : public DescribedDomain {
protected:
    static QVUser userNamed(const wchar_t* fullName) {
        const auto account = host::accountOfName(fullName);
        EXPECT_TRUE(account.found());
        return QVUser(account.value);
    }

    OwnedArray<QVUser> m_users;
    OwnedArray<QVGroup> m_groups;
};

TEST_F(QVUserTest, ListsTheComputersUsersInTheSystemsOrder) {
    describe("[system]\ncomputer = WS01\n[users]\nzoe\nalice\n");
    EXPECT_NE(QVUser::mf_getComputerUserList(m_users), 0);
    EXPECT_EQ(takeNames(m_users), (Names{L"WS01\\zoe", L"WS01\\alice"}));
}

TEST_F(QVUserTest, AComputerWithoutUsersIsNoFailure) {
    describe("");
    EXPECT_NE(QVUser::mf_getComputerUserList(m_users), 0);
    EXPECT_EQ(m_users.GetSize(), 0);
}

TEST_F(QVUserTest, AListThatFailsIsEmptyHoweverFarItWasRead) {
    describe("[users]\nalice\n! error 5\n");
    EXPECT_EQ(QVUser::mf_getComputerUserList(m_users), 0);
    EXPECT_EQ(m_users.GetSize(), 0);
    describe("[users]\ngenerate users = 500 user%03d\n! error 2221 after 350\n");
    EXPECT_EQ(QVUser::mf_getComputerUserList(m_users), 0);
    EXPECT_EQ(m_users.GetSize(), 0);
}

TEST_F(QVUserTest, TheReasonOfAFailureIsInTheLog) {
    describe("[users]\nalice\n! error 5\n");
    const std::string log = logOf([&] { EXPECT_EQ(QVUser::mf_getComputerUserList(m_users), 0); });
    EXPECT_NE(log.find("] W QVUser::mf_getComputerUserList: System call failed: the local users "
                       "cannot be listed, system error 5: Access is denied.\r\n"),
              std::string::npos)
        << log;
}

TEST_F(QVUserTest, ListsTheDomainsUsersOverAllPages) {
    startOn(domain + "[domain users]\ngenerate users = 25 user%02d\n");
    EXPECT_NE(QVUser::mf_getDomainUserList(m_users), 0);
    ASSERT_NE(DomainSession::listedUsers(), nullptr);
    const Names names = takeNames(m_users);
    ASSERT_EQ(names.size(), 25U);
    EXPECT_EQ(names.front(), L"CORP\\user01");
    EXPECT_EQ(names.back(), L"CORP\\user25");
}

TEST_F(QVUserTest, ADomainsListThatFailsIsEmptyAndNotRemembered) {
    startOn(domain + "[domain users]\ngenerate users = 25 user%02d\n! error 2221 after 15\n");
    EXPECT_EQ(QVUser::mf_getDomainUserList(m_users), 0);
    EXPECT_EQ(m_users.GetSize(), 0);
    EXPECT_EQ(DomainSession::listedUsers(), nullptr);
}

TEST_F(QVUserTest, WithoutAControllerTheDomainsListIsEmpty) {
    startOn(domain + "reachable = no\n[domain users]\nalice\n");
    EXPECT_EQ(QVUser::mf_getDomainUserList(m_users), 0);
    EXPECT_EQ(m_users.GetSize(), 0);
}

TEST_F(QVUserTest, TheDomainIsNotAskedUnlessItsInstanceWasStarted) {
    describe(domain + "[domain users]\nalice\n");
    EXPECT_NE(errorOf([this] { QVUser::mf_getDomainUserList(m_users); }), L"");
    EXPECT_EQ(m_users.GetSize(), 0);
    EXPECT_EQ(description::remoteQuestions(), 0U);
}

TEST_F(QVUserTest, ListsLocalGroupsOrNoneWhereTheyCannotBeAskedFor) {
    const std::string machine =
        "[system]\ncomputer = WS01\n[users]\nalice\nbob\n[groups]\nWriters = alice\nReaders = bob\nAll = *\n";
    describe(machine);
    EXPECT_NE(userNamed(L"WS01\\alice").mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(takeNames(m_groups), (Names{L"WS01\\Writers", L"WS01\\All"}));
    describe(machine + "! refused alice\n");
    EXPECT_EQ(userNamed(L"WS01\\alice").mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
    EXPECT_NE(userNamed(L"WS01\\bob").mf_getComputerGroupList(m_groups), 0);
    EXPECT_EQ(takeNames(m_groups), (Names{L"WS01\\Readers", L"WS01\\All"}));
}

TEST_F(QVUserTest, ListsDomainLocalGroupsOrNoneWhereTheyCannotBeAskedFor) {
    const std::string machine = domain + "[domain users]\nalice\n[domain groups]\nWriters = alice\nOthers\n";
    startOn(machine);
    EXPECT_NE(userNamed(L"CORP\\alice").mf_getDomainLocalGroupList(m_groups), 0);
    EXPECT_EQ(takeNames(m_groups), (Names{L"CORP\\Writers"}));
    startOn(machine + "! refused alice\n");
    EXPECT_EQ(userNamed(L"CORP\\alice").mf_getDomainLocalGroupList(m_groups), 0);
    EXPECT_EQ(m_groups.GetSize(), 0);
}

}  // namespace
