#pragma once

#include "runtime/base/CString.h"

/// The cluster of which this computer is a node.
class QVCluster {
public:
    /// The cluster's name, its nodes with their states and its groups with their owners, each line led by
    /// `indent`, lines separated by CR LF, none at the end. A computer that is no cluster node and a cluster
    /// that does not answer give one line that says so; natural causes do not throw.
    static const CString mf_toString(const CString& indent);
};
