/// The Windows host over made-up system libraries (netapi32.cpp, clusapi.cpp), which must stand in the
/// system's folder: what no test machine has at hand, domains, long lists, refusals and clusters.

#include "made_up.h"

namespace {

using host::Account;
using host::Answer;
using host::Status;

TEST_F(MadeUp, ManyUsersComeInPagesWithoutTheMachines) {
    set(L"KVX_USERS", L"25000");
    Answer<host::Done> ended;
    const std::vector<Account> users = list(host::users, ended);
    EXPECT_EQ(ended.status, Status::found);
    ASSERT_EQ(users.size(), 25000U);
    EXPECT_EQ(users.front().name, L"user00000");
    EXPECT_EQ(users.back().name, L"user24999");
    EXPECT_EQ(users.front().domain, L"CORP");
    ASSERT_EQ(users.front().sid.subAuthorityCount, 5);
    EXPECT_EQ(users.front().sid.subAuthorities[0], 21U);
    EXPECT_EQ(users.front().sid.subAuthorities[3], 33U);
    EXPECT_EQ(users.front().sid.subAuthorities[4], 1000U);
}

TEST_F(MadeUp, APageOfMachinesDoesNotEndTheList) {
    set(L"KVX_USERS", L"40");
    set(L"KVX_PAGE", L"1");
    Answer<host::Done> ended;
    EXPECT_EQ(list(host::users, ended).size(), 40U);
    EXPECT_EQ(ended.status, Status::found);
}

TEST_F(MadeUp, AListThatStandsStillEndsAsAFailure) {
    set(L"KVX_USERS", L"5");
    set(L"KVX_STUCK", L"1");
    Answer<host::Done> ended;
    EXPECT_EQ(list(host::users, ended).size(), 5U);
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
    for (const wchar_t* code : {L"5", L"65", L"1314"}) {
        set(L"KVX_NETAPI_ERROR", code);
        EXPECT_EQ(host::users(controller, 0).status, Status::refused);
        EXPECT_EQ(host::users(controller, 0).failure.code, std::stoul(code));
        EXPECT_EQ(host::localGroups(controller, 0).status, Status::refused);
        EXPECT_EQ(host::localGroupsOf(controller, {L"CORP", L"alice", {}}).status, Status::refused);
    }
    for (const wchar_t* code : {L"1722", L"2453", L"2351", L"53"}) {
        set(L"KVX_NETAPI_ERROR", code);
        EXPECT_EQ(host::users(controller, 0).status, Status::failed);
        EXPECT_EQ(host::users(controller, 0).failure.code, std::stoul(code));
        EXPECT_EQ(host::globalGroupsOf(controller, {L"CORP", L"alice", {}}).status, Status::failed);
        EXPECT_EQ(host::membership().status, Status::failed);
    }
}

TEST_F(MadeUp, GroupsHaveTheirDomainsAndSids) {
    // "Users" is a group of every Windows; the other one cannot be looked up.
    set(L"KVX_GROUPS", L"Users;KvxTestGroup");
    std::vector<Account> groups;
    const auto ended =
        host::readPages<Account>([](std::uint64_t cursor) { return host::localGroups({}, cursor); },
                                 [&](Account group) { groups.push_back(std::move(group)); });
    EXPECT_EQ(ended.status, Status::found);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].name, L"Users");
    EXPECT_EQ(groups[0].domain, L"BUILTIN");
    ASSERT_EQ(groups[0].sid.subAuthorityCount, 2);
    EXPECT_EQ(groups[0].sid.subAuthorities[1], 545U);
    EXPECT_EQ(groups[1].name, L"KvxTestGroup");
    EXPECT_FALSE(groups[1].domain.empty());
    EXPECT_TRUE(groups[1].sid.empty());
}

TEST_F(MadeUp, AUserHasGroups) {
    set(L"KVX_MEMBER_OF", L"Users");
    const auto local = host::localGroupsOf({}, {L"", L"alice", {}});
    ASSERT_TRUE(local.found());
    ASSERT_EQ(local.value.size(), 1U);
    EXPECT_EQ(local.value[0].name, L"Users");
    EXPECT_EQ(host::globalGroupsOf({}, {L"", L"alice", {}}).value.size(), 1U);
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"nobody", {}}).status, Status::missing);
    EXPECT_EQ(host::globalGroupsOf({}, {L"", L"nobody", {}}).status, Status::missing);
}

TEST_F(MadeUp, AnAccountFromElsewhereIsAskedForWithItsDomain) {
    set(L"KVX_USERS", L"1");
    const auto fromElsewhere = host::localGroupsOf(controller, {L"OTHER", L"bob", {}});
    ASSERT_EQ(fromElsewhere.value.size(), 1U);
    EXPECT_EQ(fromElsewhere.value[0].name, L"OTHER\\bob");
}

TEST_F(MadeUp, WhoMayNotReadTheDomainGetsTheDirectGroups) {
    set(L"KVX_MEMBER_OF", L"Users");
    set(L"KVX_INDIRECT_ERROR", L"5");
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"alice", {}}).value.size(), 1U);
    set(L"KVX_INDIRECT_ERROR", L"1722");
    EXPECT_EQ(host::localGroupsOf({}, {L"", L"alice", {}}).status, Status::failed);
}

TEST_F(MadeUp, TheRoleTellsTheMembership) {
    struct Case {
        const wchar_t* role;
        bool joined, controller;
        const wchar_t* name;
    };
    for (const Case& each : {Case{L"0", false, false, L"WORKGROUP"}, Case{L"1", true, false, L"CORP"},
                             Case{L"2", false, false, L"WORKGROUP"}, Case{L"3", true, false, L"CORP"},
                             Case{L"4", true, true, L"CORP"}, Case{L"5", true, true, L"CORP"},
                             Case{L"none", true, false, L"CORP"}}) {
        set(L"KVX_ROLE", each.role);
        const auto answer = host::membership();
        ASSERT_TRUE(answer.found());
        EXPECT_EQ(answer.value.joined, each.joined) << each.role;
        EXPECT_EQ(answer.value.domainController, each.controller) << each.role;
        EXPECT_EQ(answer.value.domainName, each.name) << each.role;
    }
}

TEST_F(MadeUp, AControllerIsNamedWithoutBackslashes) {
    EXPECT_EQ(host::domainController(L"CORP", false, false).status, Status::failed);
    EXPECT_EQ(host::domainController(L"CORP", false, false).failure.code,
              static_cast<DWORD>(ERROR_NO_SUCH_DOMAIN));
    set(L"KVX_CONTROLLER", L"DC01");
    EXPECT_EQ(host::domainController(L"CORP", false, false).value, L"DC01");
    EXPECT_EQ(host::domainController(L"corp.example", true, false).value, L"DC01-primary");
    EXPECT_EQ(host::domainController(L"CORP", false, true).value, L"DC01-again");
}

TEST_F(MadeUp, AClusterHasNodesAndGroups) {
    set(L"KVX_CLUSTER", L"running");
    const auto answer = host::cluster();
    ASSERT_TRUE(answer.found());
    const host::ClusterFacts& cluster = answer.value;
    EXPECT_EQ(cluster.name, L"CLU1");
    ASSERT_EQ(cluster.nodes.size(), 3U);
    EXPECT_EQ(cluster.nodes[0].name, L"NODE1");
    EXPECT_EQ(cluster.nodes[0].state, L"up");
    EXPECT_EQ(cluster.nodes[1].state, L"down");
    EXPECT_EQ(cluster.nodes[2].state, L"unknown");
    ASSERT_EQ(cluster.groups.size(), 2U);
    EXPECT_EQ(cluster.groups[0].name, L"Cluster Group");
    EXPECT_EQ(cluster.groups[0].owner, L"NODE1");
    EXPECT_EQ(cluster.groups[0].state, L"online");
    EXPECT_EQ(cluster.groups[1].name, std::wstring(400, L'g'));
    EXPECT_EQ(cluster.groups[1].state, L"partly online");
}

TEST_F(MadeUp, NoClusterAStoppedOneAndARefusedOneAreToldApart) {
    set(L"KVX_CLUSTER", L"none");
    EXPECT_EQ(host::cluster().status, Status::missing);
    set(L"KVX_CLUSTER", L"stopped");
    EXPECT_EQ(host::cluster().status, Status::failed);
    EXPECT_EQ(host::cluster().failure.text, L"the cluster service is not running on this node");
    set(L"KVX_CLUSTER", L"refused");
    EXPECT_EQ(host::cluster().status, Status::refused);
    EXPECT_EQ(host::cluster().failure.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
}

}  // namespace
