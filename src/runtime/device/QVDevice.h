#pragma once

/// The client's file-system filter driver.
class QVDevice {
public:
    /// Makes the driver reachable for the query: its service must exist and run. Never loads the driver.
    /// Throws `QVErrno` otherwise.
    static void mf_startDriver();

    /// The packed version (`QVVersion`) of the image that the driver's service names. Throws `QVErrno` when
    /// the driver was not started here, the image has no version, or the version cannot be packed.
    static unsigned long mf_queryDriverVersion();

    /// Ends what `mf_startDriver` began; harmless when nothing was. May throw `QVErrno`.
    static void mf_stopDriver();
};
