#pragma once

/// To which groups an account belongs.

#include <vector>

#include "runtime/host/facts.h"

/// Whether an account belongs to the computer's domain, not to the computer. Throws `QVErrno` for an account
/// of another domain, and when it cannot be determined. `QVDomainController` must be started.
bool isOfDomain(const host::Account& account);

/// Whether a group is built-in: every computer has it, each with members of its own.
bool isBuiltIn(const host::Account& group);

/// The groups of an account of this computer or, `ofDomain`, of its domain: this computer's local groups,
/// directly or through other groups, and for an account of the domain also the domain-local groups (the same
/// way) and the global ones. A controller's built-in groups are not among them: they have this computer's
/// SIDs but other members. Throws `QVErrno` when any part of the answer is not to be had.
/// `QVDomainController` must be started.
std::vector<host::Account> groupsOf(const host::Account& account, bool ofDomain);
