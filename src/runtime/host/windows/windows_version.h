#pragma once

/// The version of Windows, as the kernel and as people call it.

#include <string>

#include "runtime/host/answer.h"

namespace host::windows {

struct KernelVersion {
    enum class Role { workstation, domainController, server };
    std::uint32_t major = 0, minor = 0, build = 0;
    Role role = Role::workstation;
};

/// The version of the running kernel, whatever this program's manifest says that it knows.
Answer<KernelVersion> kernelVersion();

/// The name of the product, from what the registry calls it, its edition included. Where the registry has
/// another name or none, the build decides: Windows 11 is still called Windows 10 there, and some servers by
/// the year of an older one.
std::wstring productName(const std::wstring& inRegistry, const KernelVersion& version);

}  // namespace host::windows
