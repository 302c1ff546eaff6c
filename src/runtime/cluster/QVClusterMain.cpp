#include "runtime/cluster/QVClusterMain.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"

// The cluster is described when a report asks for it (`QVCluster`); nothing is held open between start and
// stop.

void QVClusterMain::mf_createInstance() {
    if (operation::answersZero(L"QVClusterMain::mf_createInstance")) return;
}

void QVClusterMain::mf_deleteInstance() {
    if (operation::answersZero(L"QVClusterMain::mf_deleteInstance")) return;
}

void QVClusterMain::mf_startClusterStorage(int flags) {
    if (operation::answersZero(L"QVClusterMain::mf_startClusterStorage", flags)) return;
}

int QVClusterMain::mf_stopClusterStorage() {
    if (operation::answersZero(L"QVClusterMain::mf_stopClusterStorage")) return 0;
    return 0;
}

void QVClusterMain::mf_startCluster(int flags) {
    if (operation::answersZero(L"QVClusterMain::mf_startCluster", flags)) return;
    const auto node = host::clusterNode();
    if (node.isMissing()) raise(QVErrno::_E_::Unspecific, L"this computer is not a node of a cluster");
    if (node.status == host::Status::refused) raise(node.failure, L"the cluster service refuses to answer");
    if (!node.found()) raise(node.failure, L"the cluster service does not answer");
}

int QVClusterMain::mf_stopCluster() {
    if (operation::answersZero(L"QVClusterMain::mf_stopCluster")) return 0;
    return 0;
}
