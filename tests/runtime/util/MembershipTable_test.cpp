#include "runtime/util/MembershipTable.h"

#include <gtest/gtest.h>

#include <map>

#include "runtime/host/sid_text.h"
#include "runtime/util/QVSid.h"

namespace {

using host::Account;
using host::AccountPage;
using host::Answer;
using host::Nesting;
using Names = std::vector<std::wstring>;

constexpr std::uint32_t firstUser = 1000;

host::Sid sidOf(std::uint32_t rid) {
    return *host::sidOf(L"S-1-5-21-1-2-3-" + std::to_wstring(rid));
}

/// Groups and members made up by a test, given out in pages.
class Domain {
public:
    Domain() {
        for (const wchar_t* name : {L"ada", L"ben", L"cleo"})
            addUser(name);
    }

    void addUser(const std::wstring& name) {
        users.add({L"CORP", name, sidOf(firstUser + static_cast<std::uint32_t>(users.size()))});
    }

    /// Groups have their numbers for last parts of their SIDs.
    void add(GroupSet::Kind kind, std::uint32_t rid, std::vector<Account> members) {
        (kind == GroupSet::Kind::local ? locals : globals)
            .push_back({L"CORP", std::to_wstring(rid), sidOf(rid)});
        membersOf[rid] = std::move(members);
    }

    GroupSet set(GroupSet::Kind kind, bool isWanted = true) {
        GroupSet result;
        result.kind = kind;
        result.list = [this, kind](std::uint64_t cursor) {
            return page(kind == GroupSet::Kind::local ? locals : globals, cursor);
        };
        result.members = [this](const Account& group, std::uint64_t cursor) -> Answer<AccountPage> {
            const auto rid = static_cast<std::uint32_t>(std::stoul(group.name));
            ++asked[rid];
            if (failing.count(rid) != 0 && cursor >= failing[rid].second) return failing[rid].first;
            return page(membersOf[rid], cursor);
        };
        if (isWanted) result.isWanted = [](const Account&) { return true; };
        return result;
    }

    Answer<MembershipTable> read(Nesting nesting) {
        return MembershipTable::read({set(GroupSet::Kind::local), set(GroupSet::Kind::global, false)},
                                     nesting, users);
    }

    static Names names(const MembershipTable& table, std::size_t user) {
        Names result;
        for (const std::uint32_t group : table.groupsOf(user))
            result.push_back(table.group(group).name);
        return result;
    }

    ListedAccounts users;
    std::vector<Account> locals, globals;
    std::map<std::uint32_t, std::vector<Account>> membersOf;
    std::map<std::uint32_t, std::pair<Answer<AccountPage>, std::uint64_t>> failing;
    std::map<std::uint32_t, int> asked;

private:
    static Answer<AccountPage> page(const std::vector<Account>& items, std::uint64_t cursor) {
        constexpr std::size_t most = 2;
        AccountPage result;
        const std::size_t end = std::min(items.size(), static_cast<std::size_t>(cursor) + most);
        for (auto i = static_cast<std::size_t>(cursor); i < end; ++i)
            result.items.push_back(items[i]);
        result.next = end;
        result.more = end < items.size();
        return result;
    }
};

constexpr auto local = GroupSet::Kind::local;
constexpr auto global = GroupSet::Kind::global;

Account bySid(std::uint32_t rid) {
    return {L"", L"", sidOf(rid)};
}

Account byName(const wchar_t* name) {
    return {L"CORP", name, {}};
}

constexpr std::uint32_t ada = firstUser, ben = firstUser + 1, cleo = firstUser + 2;

TEST(MembershipTable, TellsDirectGroupsInTheOrderOfTheList) {
    Domain domain;
    domain.add(local, 9, {bySid(ada), bySid(cleo)});
    domain.add(local, 5, {});
    domain.add(local, 7, {bySid(cleo), bySid(ben), bySid(cleo)});
    for (const Nesting nesting : {Nesting::throughGlobalGroups, Nesting::throughAllGroups}) {
        const auto table = domain.read(nesting);
        ASSERT_TRUE(table.found());
        EXPECT_EQ(Domain::names(table.value, 0), (Names{L"9"}));
        EXPECT_EQ(Domain::names(table.value, 1), (Names{L"7"}));
        EXPECT_EQ(Domain::names(table.value, 2), (Names{L"9", L"7"}));
    }
}

TEST(MembershipTable, ReachesThroughAGlobalGroupInEitherWay) {
    Domain domain;
    domain.add(global, 20, {byName(L"ADA"), byName(L"computer$")});
    domain.add(local, 5, {bySid(20), bySid(ben)});
    for (const Nesting nesting : {Nesting::throughGlobalGroups, Nesting::throughAllGroups}) {
        const auto table = domain.read(nesting);
        EXPECT_EQ(Domain::names(table.value, 0), (Names{L"5"}));
        EXPECT_EQ(Domain::names(table.value, 1), (Names{L"5"}));
        EXPECT_EQ(Domain::names(table.value, 2), Names{});
    }
}

TEST(MembershipTable, ReachesDeeperOnlyWhereTheSystemDoes) {
    Domain domain;
    domain.add(global, 20, {byName(L"ada"), byName(L"21")});
    domain.add(global, 21, {byName(L"ben")});
    domain.add(local, 5, {bySid(20)});
    domain.add(local, 6, {bySid(5), bySid(cleo)});
    const auto deep = domain.read(Nesting::throughAllGroups);
    EXPECT_EQ(Domain::names(deep.value, 0), (Names{L"5", L"6"}));
    EXPECT_EQ(Domain::names(deep.value, 1), (Names{L"5", L"6"}));
    EXPECT_EQ(Domain::names(deep.value, 2), (Names{L"6"}));
    const auto shallow = domain.read(Nesting::throughGlobalGroups);
    EXPECT_EQ(Domain::names(shallow.value, 0), (Names{L"5"}));
    EXPECT_EQ(Domain::names(shallow.value, 1), Names{});
    EXPECT_EQ(Domain::names(shallow.value, 2), (Names{L"6"}));
}

TEST(MembershipTable, GroupsThatHoldEachOtherEndTheWalk) {
    Domain domain;
    domain.add(local, 5, {bySid(6), bySid(5)});
    domain.add(local, 6, {bySid(20)});
    domain.add(global, 20, {byName(L"ben"), byName(L"20"), bySid(5)});
    const auto table = domain.read(Nesting::throughAllGroups);
    EXPECT_EQ(Domain::names(table.value, 1), (Names{L"5", L"6"}));
    EXPECT_EQ(Domain::names(table.value, 0), Names{});
}

TEST(MembershipTable, ReadsEachGroupOnceAndOnlyWhatMatters) {
    Domain domain;
    domain.add(local, 5, {bySid(20)});
    domain.add(local, 6, {bySid(20), bySid(5)});
    domain.add(global, 20, {byName(L"ada")});
    domain.add(global, 21, {byName(L"ada")});
    ASSERT_TRUE(domain.read(Nesting::throughAllGroups).found());
    EXPECT_EQ(domain.asked, (std::map<std::uint32_t, int>{{5, 1}, {6, 1}, {20, 1}}));
}

TEST(MembershipTable, WhoIsNotInTheListOrNotThereIsPassedOver) {
    Domain domain;
    domain.add(
        local, 5,
        {bySid(4711), {L"OTHER", L"ada", {}}, {L"", L"", *host::sidOf(L"S-1-5-21-9-9-9-1000")}, bySid(ada)});
    const auto table = domain.read(Nesting::throughAllGroups);
    EXPECT_EQ(Domain::names(table.value, 0), (Names{L"5"}));
    EXPECT_EQ(Domain::names(table.value, 1), Names{});
}

TEST(MembershipTable, OnlyDirectMembersOfAGlobalGroupAreItsOwn) {
    Domain domain;
    domain.add(global, 20, {byName(L"ada"), byName(L"21")});
    domain.add(global, 21, {byName(L"ben")});
    GroupSet set = domain.set(global);
    set.onlyDirect = true;
    const auto table = MembershipTable::read({set}, Nesting::throughAllGroups, domain.users);
    EXPECT_EQ(Domain::names(table.value, 0), (Names{L"20"}));
    EXPECT_EQ(Domain::names(table.value, 1), (Names{L"21"}));
}

TEST(MembershipTable, WithoutWantedGroupsNoMembersAreRead) {
    Domain domain;
    domain.add(local, 5, {bySid(ada)});
    const auto table =
        MembershipTable::read({domain.set(local, false)}, Nesting::throughAllGroups, domain.users);
    ASSERT_TRUE(table.found());
    EXPECT_TRUE(table.value.groupsOf(0).empty());
    EXPECT_TRUE(domain.asked.empty());
}

TEST(MembershipTable, APartIsNeverTakenForTheWhole) {
    for (const std::uint64_t after : {0U, 2U}) {
        Domain domain;
        domain.add(local, 5, {bySid(ada), bySid(ben), bySid(cleo)});
        domain.add(local, 6, {bySid(ada)});
        domain.failing[5] = {Answer<AccountPage>::refused(5), after};
        const auto refused = domain.read(Nesting::throughAllGroups);
        EXPECT_EQ(refused.status, host::Status::refused);
        EXPECT_EQ(refused.failure.code, 5U);
        domain.failing[5] = {Answer<AccountPage>::failed(1722), after};
        EXPECT_EQ(domain.read(Nesting::throughAllGroups).status, host::Status::failed);
    }
}

TEST(MembershipTable, AGroupThatVanishesHasNoMembers) {
    for (const std::uint64_t after : {0U, 2U}) {
        Domain domain;
        domain.add(local, 5, {bySid(ada), bySid(20), bySid(cleo)});
        domain.add(local, 6, {bySid(ada)});
        domain.add(global, 20, {byName(L"ben")});
        domain.failing[5] = {Answer<AccountPage>::missing(), after};
        const auto table = domain.read(Nesting::throughAllGroups);
        ASSERT_TRUE(table.found());
        EXPECT_EQ(Domain::names(table.value, 0), (Names{L"6"}));
        EXPECT_EQ(Domain::names(table.value, 1), Names{});
        EXPECT_EQ(Domain::names(table.value, 2), Names{});
    }
}

TEST(MembershipTable, MembersThatMakeNoProgressEndAsAFailure) {
    Domain domain;
    domain.add(local, 5, {});
    AccountPage stuck;
    stuck.items.push_back(bySid(ada));
    stuck.more = true;
    domain.failing[5] = {Answer<AccountPage>(stuck), 0};
    EXPECT_EQ(domain.read(Nesting::throughAllGroups).status, host::Status::failed);
}

TEST(MembershipTable, AListThatCannotBeReadLeavesNoTable) {
    Domain domain;
    GroupSet set = domain.set(local);
    set.list = [](std::uint64_t) { return Answer<AccountPage>::refused(5); };
    EXPECT_EQ(MembershipTable::read({set}, Nesting::throughAllGroups, domain.users).status,
              host::Status::refused);
}

}  // namespace
