#pragma once

/// When a question about every account of a list is answered from the members of the groups instead.

#include <cstddef>
#include <memory>
#include <optional>

#include "runtime/host/answer.h"
#include "runtime/util/ListedAccounts.h"
#include "runtime/util/MembershipTable.h"

/// A table about the accounts of a list, read once the first of them was asked for. It is trusted only if it
/// says what the system says of that account and of two others: who may ask for the groups of an account need
/// not be shown the members of a group.
class ListMemberships {
public:
    /// Makes this be about another list, or about none (null). Nothing happens while it stays the same.
    void follow(const std::shared_ptr<const ListedAccounts>& accounts) {
        if (accounts == m_accounts) return;
        *this = {};
        m_accounts = accounts;
    }

    /// The account's index in the list; `ListedAccounts::none` where it is not there.
    std::size_t find(const host::Account& account) const {
        return m_accounts ? m_accounts->find(account) : ListedAccounts::none;
    }

    /// The table, where it was read and proved right.
    const MembershipTable* table() const { return m_table ? &*m_table : nullptr; }

    /// Whether to read it now: never tried, and the account that was asked for is not the list's only one.
    bool isDue(std::size_t account) const {
        return !m_tried && account != ListedAccounts::none && m_accounts->size() > 1;
    }

    /// Takes the table that `read(accounts)` answers, if `agrees(table, index, account)` for each account
    /// that is compared. Otherwise returns why there is none.
    template <class Read, class Agrees>
    host::Answer<host::Done> tryOnce(std::size_t asked, Read read, Agrees agrees) {
        m_tried = true;
        host::Answer<MembershipTable> answer = read(*m_accounts);
        if (!answer.found()) return host::Answer<host::Done>::without(answer);
        for (const std::size_t index : {asked, m_accounts->size() / 2, m_accounts->size() - 1}) {
            const host::Account account = m_accounts->at(index);
            if (agrees(answer.value, index, account)) continue;
            return host::Answer<host::Done>::failed(
                0, L"they differ from what the system says of '" + account.name + L"'");
        }
        m_table = std::move(answer.value);
        return host::Done{};
    }

private:
    std::shared_ptr<const ListedAccounts> m_accounts;
    bool m_tried = false;
    std::optional<MembershipTable> m_table;
};
