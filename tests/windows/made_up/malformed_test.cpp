/// Answers that no healthy server gives: what is missing in them must not crash the program, and what is left
/// must not be taken for the whole.

#include "tests/windows/made_up/made_up.h"

namespace {

using host::Status;

const std::string machine = member +
                            "[domain users]\nalice\n[domain groups]\nReaders S-1-5-21-11-22-33-3002 = alice\n"
                            "[global groups]\nStaff S-1-5-21-11-22-33-4002 = alice\n";
const host::Account alice{L"CORP", L"alice", {}};

struct Question {
    std::string function;
    host::Answer<host::Done> (*ask)();
};

template <class Value>
host::Answer<host::Done> outcome(const host::Answer<Value>& answer) {
    return answer.found() ? host::Answer<host::Done>(host::Done{})
                          : host::Answer<host::Done>::without(answer);
}

const Question questions[] = {
    {"NetQueryDisplayInformation", [] { return outcome(host::users(controller, 0)); }},
    {"NetQueryDisplayInformation", [] { return outcome(host::globalGroups(controller, 0)); }},
    {"NetUserModalsGet", [] { return outcome(host::users(controller, 0)); }},
    {"NetLocalGroupEnum", [] { return outcome(host::localGroups(controller, 0)); }},
    {"NetUserGetLocalGroups", [] { return outcome(host::localGroupsOf(controller, alice)); }},
    {"NetUserGetGroups", [] { return outcome(host::globalGroupsOf(controller, alice)); }},
    {"NetLocalGroupGetMembers",
     [] {
         return outcome(host::localGroupMembers(controller, {L"CORP", L"Readers", {}}, 0));
     }},
    {"NetGroupGetUsers",
     [] {
         return outcome(host::globalGroupMembers(controller, {L"CORP", L"Staff", {}}, 0));
     }},
};

class Malformed : public MadeUp {};

TEST_F(Malformed, AnAnswerWithPartsMissingIsAFailure) {
    for (const Question& each : questions) {
        describe(machine);
        EXPECT_TRUE(each.ask().found()) << each.function;
        for (const std::string how : {"null names", "null buffer", "2 more records"}) {
            if (each.function == "NetUserModalsGet" && how == "2 more records") continue;
            describe(machine, each.function + " : " + how + "\n");
            const auto answer = each.ask();
            EXPECT_EQ(answer.status, Status::failed) << each.function << ": " << how;
            EXPECT_EQ(answer.failure.code, static_cast<DWORD>(ERROR_INVALID_DATA))
                << each.function << ": " << how;
        }
    }
}

TEST_F(Malformed, AComputerWithoutAccountDomainHasNoUsers) {
    for (const std::string how : {"LsaQueryInformationPolicy : null names",
                                  "LsaQueryInformationPolicy : error 5", "LsaOpenPolicy : error 1722"}) {
        describe("[system]\ncomputer = WS01\n[users]\nalice\n", how + "\n");
        EXPECT_TRUE(host::users({}, 0).unanswered()) << how;
    }
}

TEST_F(Malformed, AMembershipWithoutADomainIsAFailure) {
    describe(machine, "DsRoleGetPrimaryDomainInformation : null names\nNetGetJoinInformation : null names\n");
    EXPECT_EQ(host::membership().status, Status::failed);
    describe(machine, "DsRoleGetPrimaryDomainInformation : null names\n");
    EXPECT_EQ(host::membership().value.domainName, L"CORP");
}

TEST_F(Malformed, NamesThatAreNotToldAreNotThere) {
    describe(machine, "LookupAccountSidW : error 1722\nLookupAccountNameW : error 5\n");
    host::Sid sid = host::users(controller, 0).value.items.at(0).sid;
    EXPECT_EQ(host::accountOfSid(sid).status, Status::failed);
    EXPECT_EQ(host::accountOfName(L"CORP\\alice").status, Status::refused);
    describe(machine);
    EXPECT_EQ(host::accountOfSid(sid).value.name, L"alice");
    EXPECT_EQ(host::accountOfName(L"CORP\\alice").value.sid, sid);
    EXPECT_EQ(host::accountOfName(L"CORP\\bob").status, Status::missing);
    sid.subAuthorities[4] = 4000000;
    EXPECT_EQ(host::accountOfSid(sid).status, Status::missing);
}

}  // namespace
