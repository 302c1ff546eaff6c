#pragma once

/// What the local security authority and the system itself would tell of a described machine: names, SIDs and
/// the computer's name. The program imports these functions; `replaceImports` puts those of the described
/// machine in their places.

namespace made_up {

/// Replaces what the program imports of them. Called once, before the program calls the first.
void replaceImports();

}  // namespace made_up
