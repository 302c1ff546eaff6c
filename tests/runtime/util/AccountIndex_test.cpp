#include "runtime/util/AccountIndex.h"

#include <gtest/gtest.h>

#include "runtime/host/sid_text.h"

namespace {

host::Account account(const std::wstring& domain, const std::wstring& name, const wchar_t* sid = L"") {
    return {domain, name, host::sidOf(sid).value_or(host::Sid())};
}

const wchar_t* const one = L"S-1-5-21-1-2-3-1001";
const wchar_t* const other = L"S-1-5-21-1-2-3-1002";

/// Pairs that are the same account, and pairs that are not.
struct Pair {
    host::Account left, right;
    bool same;
};

const Pair pairs[] = {
    {account(L"CORP", L"alice", one), account(L"CORP", L"alice", one), true},
    {account(L"CORP", L"alice", one), account(L"OLD", L"renamed", one), true},
    {account(L"", L"", one), account(L"CORP", L"alice", one), true},
    {account(L"CORP", L"alice", one), account(L"CORP", L"alice", other), false},
    {account(L"CORP", L"alice", one), account(L"corp", L"ALICE"), true},
    {account(L"CORP", L"nguy\u1EC5n"), account(L"CORP", L"NGUY\u1EC4N"), true},
    {account(L"CORP", L"alice"), account(L"OLD", L"alice"), false},
    {account(L"", L"alice"), account(L"CORP", L"alice"), false},
    {account(L"", L"", one), account(L"", L""), false},
    {account(L"", L""), account(L"", L""), false},
};

TEST(SameAccount, IsToldBySidsThenByNames) {
    for (const auto& [left, right, same] : pairs) {
        EXPECT_EQ(host::isSameAccount(left, right), same);
        EXPECT_EQ(host::isSameAccount(right, left), same);
    }
}

TEST(AccountIndex, FindsTheSameAccounts) {
    for (const auto& [left, right, same] : pairs) {
        AccountIndex<int> index;
        index.add(left, 7);
        EXPECT_EQ(index.find(right) != nullptr, same);
        index.clear();
        index.add(right, 7);
        EXPECT_EQ(index.find(left) != nullptr, same);
    }
}

TEST(AccountIndex, HandsOutEveryValueInTheirOrder) {
    AccountIndex<int> index;
    index.add(account(L"CORP", L"alice", one), 1);
    index.add(account(L"CORP", L"alice", other), 2);
    index.add(account(L"CORP", L"Alice"), 3);
    std::vector<int> found;
    index.forEach(account(L"CORP", L"alice"), [&found](int value) { found.push_back(value); });
    EXPECT_EQ(found, (std::vector<int>{1, 2, 3}));
    found.clear();
    index.forEach(account(L"CORP", L"alice", other), [&found](int value) { found.push_back(value); });
    EXPECT_EQ(found, (std::vector<int>{2, 3}));
    EXPECT_EQ(*index.find(account(L"CORP", L"ALICE")), 1);
}

}  // namespace
