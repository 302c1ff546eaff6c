#pragma once

/// What the tests of accounts of a described machine share.

#include "runtime/host/host.h"
#include "tests/runtime/host/description/machine_fixture.h"
#include "tests/runtime/host/listed_accounts.h"

class DescribedAccounts : public DescribedMachine {
protected:
    using Names = std::vector<std::wstring>;
    using List = host::Answer<host::AccountPage> (*)(const host::AccountSource&, std::uint64_t);

    /// The names of a whole list; the way in which it ended goes to `end`.
    static Names all(List list, const std::wstring& server, host::Answer<host::Done>& end) {
        return fullNames(listedAccounts([&](std::uint64_t cursor) { return list({server}, cursor); }, end));
    }
    /// The same for a list that must be there to its end.
    static Names all(List list, const std::wstring& server = {}) {
        return fullNames(listedAccounts([&](std::uint64_t cursor) { return list({server}, cursor); }));
    }

    static Names groupsOf(const std::wstring& domain, const std::wstring& name,
                          const std::wstring& server = {}) {
        const auto answer = host::localGroupsOf({server}, {domain, name, {}});
        EXPECT_TRUE(answer.found());
        return fullNames(answer.value);
    }

    /// A member of a domain, with groups of every kind in each other.
    static constexpr const char* domain =
        "[system]\ncomputer = FS01\n"
        "[domain]\njoined = yes\nname = CORP\ndns = corp.example\ncontroller = DC01\nprimary = DC02\n"
        "[domain users]\nada\nben\ncarla = S-1-5-21-1-2-3-9999\n"
        "[global groups]\nDomain Users = *\nEngineers = ada\nStaff = Engineers, ben\n"
        "[domain groups]\nReaders = Staff\nWriters = ada, CORP\\ben\nEmpty =\n"
        "[users]\nlocal\n[groups]\nAdministrators = local, CORP\\Engineers\n"
        "Others = Administrators, CORP\\Readers\n";
};
