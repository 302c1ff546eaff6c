#pragma once

#include "runtime/util/QVGroup.h"
#include "runtime/util/QVSid.h"

/// A user account.
class QVUser : public QVSid {
public:
    using QVSid::QVSid;

    /// Fills `list` with this computer's users, in the system's order; machine and trust accounts are left
    /// out. The caller owns the objects. 0 on failure: the list is then empty, and the reason is in the trace
    /// log.
    static int mf_getComputerUserList(QVArray<QVUser*, QVUser*>& list);

    /// The same for the users of the domain.
    static int mf_getDomainUserList(QVArray<QVUser*, QVUser*>& list);

    /// Fills `list` with the local groups to which this user belongs, directly or through other groups. 0 on
    /// failure.
    int mf_getComputerGroupList(QVArray<QVGroup*, QVGroup*>& list);

    /// The same for the domain-local groups.
    int mf_getDomainLocalGroupList(QVArray<QVGroup*, QVGroup*>& list);
};
