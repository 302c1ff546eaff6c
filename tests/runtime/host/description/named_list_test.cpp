#include "runtime/host/description/named_list.h"

#include <gtest/gtest.h>

namespace {

struct Entry {
    std::wstring name;
    int number = 0;
};

/// "NAME=NUMBER " for each entry.
std::wstring shown(const description::NamedList<Entry>& list) {
    std::wstring text;
    for (const Entry& entry : list.entries())
        text += entry.name + L"=" + std::to_wstring(entry.number) + L" ";
    return text;
}

TEST(NamedList, KeepsTheOrderAndReplacesInPlace) {
    description::NamedList<Entry> list;
    list.put({L"b", 1});
    list.put({L"a", 2});
    list.put({L"B", 3});
    EXPECT_EQ(shown(list), L"B=3 a=2 ");
    EXPECT_EQ(list.positionOf(L"b"), 0U);
    EXPECT_EQ(list.positionOf(L"a"), 1U);
    EXPECT_EQ(list.positionOf(L"c"), 2U);
}

TEST(NamedList, ARemovedEntryLeavesTheOthersWhereTheyAreFound) {
    description::NamedList<Entry> list;
    for (const wchar_t* name : {L"a", L"b", L"c"})
        list.put({name, 1});
    list.remove(L"B");
    list.remove(L"nobody");
    EXPECT_EQ(shown(list), L"a=1 c=1 ");
    EXPECT_EQ(list.positionOf(L"c"), 1U);
    list.put({L"C", 2});
    list.put({L"b", 3});
    EXPECT_EQ(shown(list), L"a=1 C=2 b=3 ");
}

}  // namespace
