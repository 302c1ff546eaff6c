#pragma once

namespace made_up {

/// Lets quirks be about the questions that the program puts to a service and to the version of its image; all
/// else is answered by the system.
void replaceServices();

}  // namespace made_up
