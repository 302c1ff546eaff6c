#pragma once

/// Security identifiers of the system's and the seam's.

#include "runtime/host/facts.h"
#include "runtime/host/os.h"

namespace host::windows {

/// An empty one where there is none, or none that is valid.
Sid sidFrom(PSID sid);

/// The account `rid` of a domain; empty where the domain's own is not known.
Sid accountIn(const Sid& domain, DWORD rid);

/// `sid` where a call wants to be able to change it; points into it.
PSID systemForm(Sid& sid);

}  // namespace host::windows
