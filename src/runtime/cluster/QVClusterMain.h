#pragma once

/// The cluster singleton. Every start throws `QVErrno` on failure; stopping what never started is harmless,
/// on a machine without a cluster too.
class QVClusterMain {
public:
    static void mf_createInstance();
    static void mf_deleteInstance();

    /// The numbers are sets of flags; 0: none.
    static void mf_startClusterStorage(int flags);
    static int mf_stopClusterStorage();

    /// Throws also when this computer is not a node of a cluster, or the cluster service does not answer.
    static void mf_startCluster(int flags);
    static int mf_stopCluster();
};
