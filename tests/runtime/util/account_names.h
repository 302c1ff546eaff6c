#pragma once

/// Lists of accounts as tests look at them.

#include <string>
#include <vector>

#include "runtime/util/QVArray.h"
#include "runtime/util/QVUser.h"

/// The full names of the accounts of a list, which is emptied and its objects deleted.
template <class Entry>
std::vector<std::wstring> takeNames(QVArray<Entry*, Entry*>& list) {
    std::vector<std::wstring> names;
    for (int i = 0; i < list.GetSize(); ++i)
        names.push_back(list[i]->mf_getFullName().units());
    deleteElements(list);
    return names;
}

/// The full names of a user's built-in and domain-local groups; "failed" when they cannot be listed.
inline std::vector<std::wstring> domainLocalGroupsOf(QVUser& user) {
    QVArray<QVGroup*, QVGroup*> groups;
    return user.mf_getDomainLocalGroupList(groups) ? takeNames(groups) : std::vector<std::wstring>{L"failed"};
}
