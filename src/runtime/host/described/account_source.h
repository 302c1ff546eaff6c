#pragma once

/// Where the described machine looks for accounts, and what the answers about them share.

#include <cstdint>
#include <functional>

#include "runtime/host/description/directory.h"
#include "runtime/host/facts.h"

namespace described {

/// The domain as the description states it.
const description::DomainDescription& domain();

/// Which accounts this computer has: its own; a controller's are the domain's.
description::Scope scopeHere();

/// Which accounts a source has; without an answer where no such computer is reached. Asking another computer
/// counts as a remote question.
host::Answer<description::Scope> scopeOf(const host::AccountSource& source);

/// Counts a question about an account of the domain: only a controller answers it without another computer.
void countIfRemote(bool isOfDomain);

/// One page of a list of `count` items from `cursor` on, as far as the list can be read.
host::Answer<host::AccountPage> pageOf(std::uint64_t cursor, std::uint64_t count,
                                       const description::ListCause& cause,
                                       const std::function<host::Account(std::uint64_t)>& item);

/// The groups that are local there: this computer's, or the built-in and domain-local ones of the domain.
description::GroupKind localKind(description::Scope scope);

/// The list of the groups of a kind, with the causes that stand in it.
const description::GroupList& groupList(description::GroupKind kind);

}  // namespace described
