#pragma once

/// The storage service: it knows the volumes. Started and stopped by `QVMain`.

#include "runtime/util/QVArray.h"
#include "runtime/util/QVVolume.h"

class QVStorage {
public:
    /// Non-zero while the service is started.
    static int mf_isInitialized();

    /// Appends every volume: lettered ones by letter, then those mounted in folders, then the rest. The
    /// volumes belong to the service and live until it is stopped. Where the system does not list them, one
    /// stands in their place that tells why; the reason is in the trace log as well.
    static void mf_getVolumes(QVArray<QVVolume*>& volumes);

    static void start();
    static void stop() noexcept;
};
