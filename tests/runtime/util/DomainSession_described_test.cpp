#include "runtime/util/DomainSession.h"

#include "tests/runtime/util/described_domain.h"

namespace {

using Reply = host::Answer<host::Done>;

constexpr const char* member = "[domain]\njoined = yes\nname = CORP\ncontroller = DC02\nprimary = DC01\n";

class DomainSessionTest : public DescribedDomain {
protected:
    /// Puts a question that gets this reply; tells how often it was put.
    static int timesAsked(const Reply& reply) {
        int times = 0;
        const Reply result = DomainSession::ask([&](const host::AccountSource& source) {
            ++times;
            EXPECT_EQ(source.server, L"DC02");
            return reply;
        });
        EXPECT_EQ(result.status, reply.status);
        return times;
    }
};

TEST_F(DomainSessionTest, AControllerIsLocatedOnce) {
    startOn(member);
    EXPECT_EQ(DomainSession::accountSource().value.server, L"DC02");
    EXPECT_EQ(DomainSession::accountSource().value.server, L"DC02");
    EXPECT_EQ(timesAsked(host::Done{}), 1);
    EXPECT_EQ(description::remoteQuestions(), 1U);
}

TEST_F(DomainSessionTest, ALostControllerIsReplacedOnceAndThenNotAskedAgain) {
    startOn(member);
    EXPECT_EQ(timesAsked(Reply::failed(1722)), 2);
    EXPECT_EQ(description::remoteQuestions(), 2U);
    EXPECT_EQ(timesAsked(Reply::failed(1722)), 0);
    EXPECT_EQ(DomainSession::accountSource().failure.code, 1722U);
    EXPECT_EQ(description::remoteQuestions(), 2U);
    QVDomainController::stop();
    QVDomainController::start();
    EXPECT_EQ(timesAsked(Reply::failed(1722)), 2);
}

TEST_F(DomainSessionTest, AnAnswerOfTheControllerNeedsNoOtherOne) {
    startOn(member);
    EXPECT_EQ(timesAsked(Reply::refused(5)), 1);
    EXPECT_EQ(timesAsked(Reply::missing()), 1);
    EXPECT_EQ(timesAsked(Reply::failed(1332)), 1);
    EXPECT_EQ(timesAsked(Reply::failed(0, L"the list makes no progress")), 1);
    EXPECT_EQ(description::remoteQuestions(), 1U);
}

TEST_F(DomainSessionTest, ACodeSaysWhetherTheControllerIsLost) {
    for (const std::uint32_t code :
         {51U,   53U,   54U,   55U,   59U,   64U,   67U,   71U,   121U,  1115U, 1130U,
          1225U, 1231U, 1232U, 1233U, 1234U, 1236U, 1256U, 1311U, 1355U, 1396U, 1460U,
          1715U, 1717U, 1722U, 1723U, 1726U, 1727U, 1753U, 1818U, 1908U, 2453U}) {
        startOn(member);
        EXPECT_EQ(timesAsked(Reply::failed(code)), 2) << code;
        EXPECT_EQ(description::remoteQuestions(), 2U) << code;
        QVDomainController::stop();
    }
    for (const std::uint32_t code : {0U, 5U, 124U, 1332U, 2123U, 2138U, 2221U, 2351U}) {
        startOn(member);
        EXPECT_EQ(timesAsked(Reply::failed(code)), 1) << code;
        EXPECT_EQ(description::remoteQuestions(), 1U) << code;
        QVDomainController::stop();
    }
}

TEST_F(DomainSessionTest, AControllerAsksItself) {
    startOn("[system]\ncomputer = DC02\n[domain]\njoined = yes\nname = CORP\nrole = controller\n");
    EXPECT_EQ(DomainSession::accountSource().value.server, L"");
    int times = 0;
    DomainSession::ask([&](const host::AccountSource&) {
        ++times;
        return Reply::failed(1722);
    });
    EXPECT_EQ(times, 1);
    EXPECT_EQ(description::remoteQuestions(), 0U);
}

TEST_F(DomainSessionTest, WithoutAControllerTheQuestionIsNotPut) {
    startOn("[domain]\njoined = yes\nname = CORP\ncontroller = DC02\nreachable = no\n");
    int times = 0;
    const Reply reply = DomainSession::ask([&](const host::AccountSource&) {
        ++times;
        return Reply(host::Done{});
    });
    EXPECT_EQ(reply.status, host::Status::failed);
    EXPECT_EQ(reply.failure.code, 1355U);
    EXPECT_EQ(times, 0);
}

}  // namespace
