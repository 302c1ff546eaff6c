#pragma once

namespace made_up {

/// Lets the program's questions about volumes be answered from the section [volumes] of the description,
/// where the environment has KVX_MADE_UP_VOLUMES.
void replaceVolumes();

}  // namespace made_up
