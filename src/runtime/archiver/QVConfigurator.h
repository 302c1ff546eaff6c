#pragma once

/// What a back end needs on this computer.

#include "runtime/archiver/QVBackend.h"
#include "runtime/base/CString.h"
#include "runtime/host/numbers.h"

class QVConfigurator {
public:
    /// A new configurator for `backend`; given back by `mf_deleteInstance`. Throws `QVErrno` when the version
    /// of the installed backup API cannot be determined from the registry.
    static QVConfigurator* mf_createInstance(const QVBackend& backend);

    /// Destroys the configurator (a null pointer is none). May throw `QVErrno`; it is destroyed all the same.
    static void mf_deleteInstance(QVConfigurator* configurator);

    /// Non-zero when the installed API's version lies in the required range, compared number by number.
    int mf_isAPISupported() const;

    const CString mf_getRequiredAPIVersionMin() const;  ///< the lowest supported version
    const CString mf_getRequiredAPIVersionMax() const;  ///< the first version that is no longer supported

private:
    explicit QVConfigurator(const host::DottedVersion& installed) : m_installed(installed) {}

    host::DottedVersion m_installed;
};
