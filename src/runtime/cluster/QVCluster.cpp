#include "runtime/cluster/QVCluster.h"

#include "runtime/base/fact_lines.h"
#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"

namespace {

CString describe(const host::ClusterNode& node) {
    return formatted(L"%s (%s)", node.name.c_str(), node.state.c_str());
}

CString describe(const host::ClusterGroup& group) {
    const std::wstring owner = group.owner.empty() ? L"no owner" : L"owner " + group.owner;
    return formatted(L"%s (%s, %s)", group.name.c_str(), owner.c_str(), group.state.c_str());
}

template <class Entry>
void addAll(FactLines& lines, const wchar_t* label, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        lines.add(label, describe(entry));
        label = L"";
    }
    if (entries.empty()) lines.add(label, L"none");
}

}  // namespace

const CString QVCluster::mf_toString(const CString& indent) {
    if (operation::answersZero(L"QVCluster::mf_toString")) return {};
    const auto cluster = host::cluster();
    if (cluster.isMissing()) return indent + L"This computer is not a node of a cluster.";
    if (!cluster.found()) {
        const bool refused = cluster.status == host::Status::refused;
        return indent + unknownFact(cluster, refused ? L"The cluster service refuses to answer"
                                                     : L"The cluster service does not answer");
    }
    FactLines lines(indent, 9);
    lines.add(L"Cluster:", CString(cluster.value.name));
    addAll(lines, L"Nodes:", cluster.value.nodes);
    addAll(lines, L"Groups:", cluster.value.groups);
    return lines.text();
}
