/// The Windows host over made-up system libraries (netapi32.cpp, clusapi.cpp), which must stand in the
/// system's folder: what no test machine has at hand, domains, long lists, refusals and clusters.

#include "tests/windows/made_up/made_up.h"

namespace {

using host::Account;
using host::Answer;
using host::Status;

std::string usersAndMachines(int users) {
    return member + "[domain users]\ngenerate users = " + std::to_string(users) +
           " user%05d\ngenerate users = " + std::to_string(users / 10) + " PC%05d$\n";
}

TEST_F(MadeUp, ManyUsersComeInPagesWithoutTheMachines) {
    describe(usersAndMachines(25000));
    const long before = calls("NetQueryDisplayInformation");
    Answer<host::Done> ended;
    const std::vector<Account> users = list(host::users, ended);
    EXPECT_EQ(ended.status, Status::found);
    ASSERT_EQ(users.size(), 25000U);
    EXPECT_EQ(users.front().name, L"user00001");
    EXPECT_EQ(users.back().name, L"user25000");
    EXPECT_EQ(users.front().domain, L"CORP");
    ASSERT_EQ(users.front().sid.subAuthorityCount, 5);
    EXPECT_EQ(users.front().sid.subAuthorities[0], 21U);
    EXPECT_EQ(users.front().sid.subAuthorities[3], 33U);
    EXPECT_EQ(users.front().sid.subAuthorities[4], 10000001U);
    EXPECT_EQ(calls("NetQueryDisplayInformation") - before, 275);
}

TEST_F(MadeUp, APageOfMachinesDoesNotEndTheList) {
    describe(member + "page size = 1\n[domain users]\nPC0$\nalice\nPC1$\nPC2$\nbob\nPC3$\n");
    Answer<host::Done> ended;
    const std::vector<Account> users = list(host::users, ended);
    ASSERT_EQ(users.size(), 2U);
    EXPECT_EQ(users[1].name, L"bob");
    EXPECT_EQ(ended.status, Status::found);
}

TEST_F(MadeUp, AListWithoutProgressEndsAsAFailure) {
    const std::string machine = usersAndMachines(300) +
                                "[domain groups]\nA S-1-5-21-11-22-33-1 = *\n"
                                "B S-1-5-21-11-22-33-2 =\nC S-1-5-21-11-22-33-3 =\n"
                                "[domain]\npage size = 2\nmember page size = 20\n";
    for (const std::string way : {"stands still", "goes round", "empty page", "never ends"}) {
        describe(machine, "NetQueryDisplayInformation : " + way + "\nNetLocalGroupEnum : " + way +
                              "\nNetLocalGroupGetMembers : " + way + "\n");
        Answer<host::Done> ended;
        list(host::users, ended);
        EXPECT_EQ(ended.status, Status::failed) << way;
        list(host::localGroups, ended);
        EXPECT_EQ(ended.status, Status::failed) << way;
        const auto members = [](const host::AccountSource& source, std::uint64_t cursor) {
            return host::localGroupMembers(source, {L"CORP", L"A", {}}, cursor);
        };
        list(members, ended);
        EXPECT_EQ(ended.status, Status::failed) << way;
    }
}

TEST_F(MadeUp, ADomainOfMachinesThatGoesRoundEnds) {
    describe(member + "[domain users]\ngenerate users = 300 PC%05d$\n",
             "NetQueryDisplayInformation : goes round\n");
    Answer<host::Done> ended;
    EXPECT_TRUE(list(host::users, ended).empty());
    EXPECT_EQ(ended.status, Status::failed);
}

TEST_F(MadeUp, AnEmptyDomainIsAnEmptyList) {
    Answer<host::Done> ended;
    EXPECT_TRUE(list(host::users, ended).empty());
    EXPECT_EQ(ended.status, Status::found);
    EXPECT_TRUE(list(host::localGroups, ended).empty());
    EXPECT_EQ(ended.status, Status::found);
}

TEST_F(MadeUp, ARefusalIsNoFailureAndNeitherIsAnEmptyList) {
    const std::string machine = member + "[domain users]\nalice\n";
    for (const std::string code : {"5", "65", "1314"}) {
        describe(machine, "remote : error " + code + "\n");
        EXPECT_EQ(host::users(controller, 0).status, Status::refused);
        EXPECT_EQ(host::users(controller, 0).failure.code, std::stoul(code));
        EXPECT_EQ(host::localGroups(controller, 0).status, Status::refused);
        EXPECT_EQ(host::localGroupsOf(controller, {L"CORP", L"alice", {}}).status, Status::refused);
    }
    for (const std::string code :
         {"53", "124", "1355", "1722", "1753", "2123", "2138", "2351", "2453", "8250"}) {
        describe(machine + "[domain]\n! error " + code + " membership\n", "remote : error " + code + "\n");
        EXPECT_EQ(host::users(controller, 0).status, Status::failed);
        EXPECT_EQ(host::users(controller, 0).failure.code, std::stoul(code));
        EXPECT_EQ(host::globalGroupsOf(controller, {L"CORP", L"alice", {}}).status, Status::failed);
        EXPECT_EQ(host::membership().status, Status::failed);
        EXPECT_EQ(host::membership().failure.code, std::stoul(code));
    }
}

TEST_F(MadeUp, AListThatBreaksOffFailsWithItsCode) {
    const std::string machine = usersAndMachines(300) +
                                "[domain groups]\nA S-1-5-21-11-22-33-1 = *\n"
                                "B S-1-5-21-11-22-33-2 =\nC S-1-5-21-11-22-33-3 =\n"
                                "[domain]\npage size = 2\nmember page size = 20\n";
    const auto members = [](const host::AccountSource& source, std::uint64_t cursor) {
        return host::localGroupMembers(source, {L"CORP", L"A", {}}, cursor);
    };
    for (const std::string code : {"5", "124", "1722", "2123", "2138", "2221"}) {
        const std::string second = " call 2 : error " + code + "\n";
        describe(machine, "NetQueryDisplayInformation" + second + "NetLocalGroupEnum" + second +
                              "NetLocalGroupGetMembers" + second);
        const Status expected = code == "5" ? Status::refused : Status::failed;
        Answer<host::Done> ended;
        EXPECT_EQ(list(host::users, ended).size(), 2U) << code;
        EXPECT_EQ(ended.status, expected) << code;
        EXPECT_EQ(ended.failure.code, std::stoul(code));
        EXPECT_EQ(list(host::localGroups, ended).size(), 2U) << code;
        EXPECT_EQ(ended.status, expected) << code;
        EXPECT_EQ(ended.failure.code, std::stoul(code));
        EXPECT_EQ(list(members, ended).size(), 20U) << code;
        EXPECT_EQ(ended.status, expected) << code;
        EXPECT_EQ(ended.failure.code, std::stoul(code));
    }
}

TEST_F(MadeUp, AServerThatIsNoneIsAFailure) {
    EXPECT_EQ(host::users({L"NOWHERE"}, 0).failure.code, static_cast<DWORD>(ERROR_BAD_NETPATH));
    EXPECT_EQ(host::localGroups({L"DC01 "}, 0).status, Status::refused);
    EXPECT_EQ(host::users({L"DC01.corp.example"}, 0).status, Status::found);
}

TEST_F(MadeUp, GroupsHaveTheirDomainsAndSids) {
    describe("[system]\ncomputer = WS01\n[groups]\nUsers (BUILTIN) =\nTesters S-1-5-21-1-2-3-7 =\n");
    Answer<host::Done> ended;
    const std::vector<Account> groups = list(host::localGroups, ended, {});
    EXPECT_EQ(ended.status, Status::found);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].name, L"Users");
    EXPECT_EQ(groups[0].domain, L"BUILTIN");
    ASSERT_EQ(groups[0].sid.subAuthorityCount, 2);
    EXPECT_EQ(groups[0].sid.subAuthorities[1], 545U);
    EXPECT_EQ(groups[1].name, L"Testers");
    EXPECT_EQ(groups[1].domain, L"WS01");
    EXPECT_EQ(groups[1].sid.subAuthorities[4], 7U);
}

TEST_F(MadeUp, AGroupThatCannotBeLookedUpKeepsItsName) {
    for (const std::string how : {"error 1722", "null buffer", "null names"}) {
        describe("[system]\ncomputer = WS01\n[groups]\nSecret S-1-5-21-1-2-3-8 =\n",
                 "LsaLookupNames2 : " + how + "\n");
        const Answer<host::AccountPage> groups = host::localGroups({}, 0);
        ASSERT_TRUE(groups.found()) << how;
        ASSERT_EQ(groups.value.items.size(), 1U);
        EXPECT_EQ(groups.value.items[0].name, L"Secret");
        EXPECT_EQ(groups.value.items[0].domain, L"WS01");
        EXPECT_TRUE(groups.value.items[0].sid.empty());
    }
}

const std::string ofTwo =
    "[system]\ncomputer = WS01\n[domain]\njoined = yes\nname = CORP\ncontroller = DC01\n"
    "[users]\nalice\n[domain users]\nalice\n[groups]\nLocals S-1-5-21-1-2-3-11 = alice\n"
    "Guests from the domain S-1-5-21-1-2-3-12 = CORP\\Staff\n[global groups]\nStaff = alice\n";

TEST_F(MadeUp, AUserHasGroups) {
    describe(ofTwo);
    const auto local = host::localGroupsOf({}, {L"", L"alice", {}});
    ASSERT_EQ(local.value.size(), 1U);
    EXPECT_EQ(local.value[0].name, L"Locals");
    EXPECT_EQ(host::globalGroupsOf({}, {L"", L"alice", {}}).value.size(), 1U);
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"nobody", {}}).status, Status::missing);
    EXPECT_EQ(host::globalGroupsOf({}, {L"", L"nobody", {}}).status, Status::missing);
}

TEST_F(MadeUp, AnAccountFromElsewhereIsAskedForWithItsDomain) {
    describe(ofTwo);
    const auto fromElsewhere = host::localGroupsOf({}, {L"CORP", L"alice", {}});
    ASSERT_EQ(fromElsewhere.value.size(), 1U);
    EXPECT_EQ(fromElsewhere.value[0].name, L"Guests from the domain");
}

TEST_F(MadeUp, WhoMayNotReadTheDomainGetsTheDirectGroups) {
    describe(ofTwo, "NetUserGetLocalGroups indirect : error 5\n");
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"alice", {}}).value.size(), 1U);
    EXPECT_TRUE(host::localGroupsOf({}, {L"CORP", L"alice", {}}).value.empty());
    describe(ofTwo, "NetUserGetLocalGroups indirect : error 1722\n");
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"alice", {}}).status, Status::failed);
}

TEST_F(MadeUp, TheRoleTellsTheMembership) {
    struct Case {
        std::string domain, quirks;
        bool joined, controller;
        const wchar_t* name;
    };
    const std::string named = "name = CORP\n";
    for (const Case& each :
         {Case{"joined = no\n", "", false, false, L"WORKGROUP"},
          Case{"joined = yes\n", "", true, false, L"CORP"},
          Case{"joined = yes\nrole = controller\n", "", true, true, L"CORP"},
          Case{"joined = yes\nrole = controller\nprimary = WS01\n", "", true, true, L"CORP"},
          Case{"joined = yes\n", "DsRoleGetPrimaryDomainInformation : error 1722\n", true, false, L"CORP"},
          Case{"joined = yes\n", "DsRoleGetPrimaryDomainInformation : null buffer\n", true, false,
               L"CORP"}}) {
        for (const std::string server : {"yes", "no"}) {
            describe("[system]\ncomputer = WS01\nserver = " + server + "\n[domain]\n" + named + each.domain,
                     each.quirks);
            const auto answer = host::membership();
            ASSERT_TRUE(answer.found());
            EXPECT_EQ(answer.value.joined, each.joined) << each.domain;
            EXPECT_EQ(answer.value.domainController, each.controller) << each.domain;
            EXPECT_EQ(answer.value.domainName, each.name) << each.domain;
        }
    }
    describe(member, "DsRoleGetPrimaryDomainInformation : error 1722\nNetGetJoinInformation : state 0\n");
    EXPECT_EQ(host::membership().status, Status::failed);
}

TEST_F(MadeUp, AControllerIsNamedWithoutBackslashes) {
    describe(member + "primary = DC02\n");
    const host::Membership known = host::membership().value;
    EXPECT_EQ(host::domainController(known, false, false).value, L"DC01.corp.example");
    EXPECT_EQ(host::domainController(known, true, false).value, L"DC02");
    host::Membership flat = known;
    flat.dnsDomainName.clear();
    EXPECT_EQ(host::domainController(flat, false, false).value, L"DC01");
    const long before = calls("DsGetDcNameW rediscovery");
    EXPECT_EQ(host::domainController(flat, false, true).value, L"DC01");
    EXPECT_EQ(calls("DsGetDcNameW rediscovery") - before, 1);
    flat.domainName = L"OTHER";
    EXPECT_EQ(host::domainController(flat, false, false).failure.code,
              static_cast<DWORD>(ERROR_NO_SUCH_DOMAIN));
}

TEST_F(MadeUp, AControllerWithoutANameIsNone) {
    const host::Membership known = host::membership().value;
    for (const std::string how :
         {"null buffer", "null names", "error 53", "error 1355", "error 1722", "error 1753", "error 8250"}) {
        describe(member, "DsGetDcNameW : " + how + "\n");
        EXPECT_EQ(host::domainController(known, false, false).status, Status::failed) << how;
        EXPECT_EQ(host::domainController(known, true, false).status, Status::failed) << how;
    }
}

const std::string clustered =
    "[cluster]\nname = CLU1\nnode = NODE1 up\nnode = NODE2 down\nnode = NODE3 unknown\n"
    "group = Cluster Group owner NODE1 online\ngroup = " +
    std::string(400, 'g') + " owner NODE1 partly online\n";

TEST_F(MadeUp, AClusterHasNodesAndGroups) {
    describe(clustered, "OpenClusterNodeEx call 3 : error 5\n");
    const auto answer = host::cluster();
    ASSERT_TRUE(answer.found());
    const host::ClusterFacts& cluster = answer.value;
    EXPECT_EQ(cluster.name, L"CLU1");
    ASSERT_EQ(cluster.nodes.size(), 3U);
    EXPECT_EQ(cluster.nodes[0].name, L"NODE1");
    EXPECT_EQ(cluster.nodes[0].state, L"up");
    EXPECT_EQ(cluster.nodes[1].state, L"down");
    EXPECT_EQ(cluster.nodes[2].state, L"unknown, system error 5");
    ASSERT_EQ(cluster.groups.size(), 2U);
    EXPECT_EQ(cluster.groups[0].name, L"Cluster Group");
    EXPECT_EQ(cluster.groups[0].owner, L"NODE1");
    EXPECT_EQ(cluster.groups[0].state, L"online");
    EXPECT_EQ(cluster.groups[1].name, std::wstring(400, L'g'));
    EXPECT_EQ(cluster.groups[1].state, L"partly online");
}

TEST_F(MadeUp, NoClusterAStoppedOneAndARefusedOneAreToldApart) {
    describe(member);
    EXPECT_EQ(host::cluster().status, Status::missing);
    describe(clustered, "GetNodeClusterState : state 0\n");
    EXPECT_EQ(host::cluster().status, Status::missing);
    describe(clustered, "GetNodeClusterState : state 3\n");
    EXPECT_EQ(host::cluster().status, Status::failed);
    EXPECT_EQ(host::cluster().failure.text, L"the cluster service is not running on this node");
    describe(clustered, "OpenClusterEx : error 5\n");
    EXPECT_EQ(host::cluster().status, Status::refused);
    EXPECT_EQ(host::cluster().failure.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

TEST_F(MadeUp, WhatACallOfTheClusterDoesNotTellIsNoCluster) {
    for (const std::string function :
         {"OpenClusterEx", "GetClusterInformation", "ClusterOpenEnum", "ClusterEnum"}) {
        describe(clustered, function + " : error 1722\n");
        EXPECT_EQ(host::cluster().status, Status::failed) << function;
        EXPECT_EQ(host::cluster().failure.code, static_cast<DWORD>(RPC_S_SERVER_UNAVAILABLE)) << function;
    }
    for (const std::string function : {"OpenClusterEx", "ClusterOpenEnum"}) {
        describe(clustered, function + " : null buffer\n");
        EXPECT_EQ(host::cluster().status, Status::failed) << function;
    }
    describe(clustered, "ClusterEnum : goes round\n");
    EXPECT_EQ(host::cluster().status, Status::failed);
}

}  // namespace
