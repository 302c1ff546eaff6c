#pragma once

#include "runtime/util/QVArray.h"
#include "runtime/util/QVSid.h"

/// A group of accounts.
class QVGroup : public QVSid {
public:
    using QVSid::QVSid;

    /// Fills `list` with this computer's local groups, in the system's order; the caller owns the objects. 0
    /// on failure: the list is then empty, and the reason is in the trace log.
    static int mf_getComputerGroupList(QVArray<QVGroup*, QVGroup*>& list);

    /// The same for the built-in and domain-local groups of the domain. May throw `QVErrno`.
    static int mf_getDomainLocalGroupList(QVArray<QVGroup*, QVGroup*>& list);
};
