#include "runtime/util/QVDomainController.h"

#include "tests/runtime/error_of.h"
#include "tests/runtime/util/described_domain.h"

namespace {

constexpr const char* member = "[domain]\njoined = yes\nname = CORP\ncontroller = DC02\nprimary = DC01\n";

using QVDomainControllerTest = DescribedDomain;

TEST_F(QVDomainControllerTest, NothingIsAnsweredUnlessStarted) {
    describe(member);
    const std::wstring refusal = L"Operation failed: the domain controller instance was not started";
    EXPECT_FALSE(DomainSession::isStarted());
    EXPECT_EQ(errorOf([] { QVDomainController::mf_isJoined(); }), refusal);
    EXPECT_EQ(errorOf([] { QVDomainController::mf_getDomainName(); }), refusal);
    EXPECT_EQ(errorOf([] { QVDomainController::mf_getPDCName(); }), refusal);
    EXPECT_EQ(errorOf([] { DomainSession::accountSource(); }), refusal);
    EXPECT_EQ(DomainSession::listedUsers(), nullptr);
}

TEST_F(QVDomainControllerTest, TellsTheDomainAndItsControllers) {
    startOn(member);
    EXPECT_NE(QVDomainController::mf_isJoined(), 0);
    EXPECT_EQ(QVDomainController::mf_getDomainName(), L"CORP");
    EXPECT_EQ(description::remoteQuestions(), 0U);
    EXPECT_EQ(QVDomainController::mf_getPDCName(), L"DC01");
    EXPECT_EQ(DomainSession::accountSource().value.server, L"DC02");
}

TEST_F(QVDomainControllerTest, TheMembershipIsAskedOnceUntilTheStop) {
    startOn(member);
    EXPECT_NE(QVDomainController::mf_isJoined(), 0);
    describe("[domain]\nworkgroup = HOME\n");
    EXPECT_NE(QVDomainController::mf_isJoined(), 0);
    EXPECT_EQ(QVDomainController::mf_getDomainName(), L"CORP");
    QVDomainController::stop();
    QVDomainController::start();
    EXPECT_EQ(QVDomainController::mf_isJoined(), 0);
    EXPECT_EQ(QVDomainController::mf_getDomainName(), L"HOME");
}

TEST_F(QVDomainControllerTest, AMembershipThatIsNotToldIsAnErrorAndAskedForAgain) {
    startOn("[domain]\n! error 1722 membership\n");
    const std::wstring expected =
        L"System call failed: the membership of a domain cannot be determined, "
        L"system error 1722: The RPC server is unavailable.";
    EXPECT_EQ(errorOf([] { QVDomainController::mf_isJoined(); }), expected);
    EXPECT_EQ(errorOf([] { QVDomainController::mf_getDomainName(); }), expected);
    describe(member);
    EXPECT_NE(QVDomainController::mf_isJoined(), 0);
}

TEST_F(QVDomainControllerTest, WithoutAControllerThereIsNoPrimaryOne) {
    startOn("[domain]\njoined = yes\nname = CORP\ncontroller = DC02\nreachable = no 1722\n");
    EXPECT_EQ(errorOf([] { QVDomainController::mf_getPDCName(); }),
              L"System call failed: no primary domain controller was found, system error 1722: "
              L"The RPC server is unavailable.");
}

TEST_F(QVDomainControllerTest, NothingIsSearchedForWithoutADomain) {
    startOn("[domain]\nworkgroup = HOME\ncontroller = DC02\n");
    EXPECT_EQ(DomainSession::accountSource().status, host::Status::failed);
    EXPECT_EQ(DomainSession::accountSource().failure.text, L"this computer is not joined to a domain");
    EXPECT_TRUE(holds(errorOf([] { QVDomainController::mf_getPDCName(); }),
                      L"no primary domain controller was found"));
    EXPECT_EQ(description::remoteQuestions(), 0U);
}

}  // namespace
