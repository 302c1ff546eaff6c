#pragma once

/// Lists of accounts as the host tells them, and as tests look at them.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "runtime/host/facts.h"
#include "runtime/host/paging.h"

/// The accounts of a list of which `fetch(cursor)` gives a page; how it ended goes to `end`.
template <class Fetch>
std::vector<host::Account> listedAccounts(Fetch fetch, host::Answer<host::Done>& end) {
    std::vector<host::Account> accounts;
    end = host::readPages<host::Account>(
        fetch, [&](host::Account account) { accounts.push_back(std::move(account)); });
    return accounts;
}

/// Those of a list that must be there to its end.
template <class Fetch>
std::vector<host::Account> listedAccounts(Fetch fetch) {
    host::Answer<host::Done> end;
    std::vector<host::Account> accounts = listedAccounts(fetch, end);
    EXPECT_TRUE(end.found()) << "error " << end.failure.code;
    return accounts;
}

/// "DOMAIN\name" of each.
inline std::vector<std::wstring> fullNames(const std::vector<host::Account>& accounts) {
    std::vector<std::wstring> names;
    names.reserve(accounts.size());
    for (const host::Account& account : accounts)
        names.push_back(account.domain + L"\\" + account.name);
    return names;
}
