#pragma once

/// Paths of images as the service control manager keeps them.

#include <string>

namespace host::windows {

/// The absolute path of the image of service `serviceName`, from what its configuration says:
/// "\SystemRoot\", "\??\", "\DosDevices\" and "\Device\" are names of the kernel's, a relative path counts
/// from the Windows directory, one without a drive from the drive of that directory; an empty one is a
/// driver's usual place; quotes and arguments may surround it.
std::wstring imagePathFrom(const std::wstring& configured, const std::wstring& serviceName,
                           const std::wstring& windowsDirectory);

}  // namespace host::windows
