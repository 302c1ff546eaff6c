#pragma once

/// What the stager can do; every function returns an error code of the system.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

/// Writes `digits`, two a byte, as the data of a value, without adding or rounding anything.
DWORD setRaw(const std::wstring& key, const std::wstring& name, unsigned long type,
             const std::wstring& digits);

/// Nobody may open the key any more, nor those below it; they keep their owner.
DWORD refuseKey(const std::wstring& key);

/// Takes `refuseKey` back.
DWORD allowKey(const std::wstring& key);

/// Registers a driver under this name with this image path as it stands, and brings it to the state. What
/// shall run is started from the image `spare` where it cannot be started from its own.
DWORD makeService(const std::wstring& name, const std::wstring& state, const std::wstring& image,
                  const std::wstring& spare);

/// Stops the service and takes it out; one that is not there is no error.
DWORD removeService(const std::wstring& name);

/// Makes a drive of this type (as GetDriveTypeW numbers them) over a folder and a device, or the image of
/// one, of the host system; either may be empty.
DWORD defineDrive(const std::wstring& letter, unsigned long type, const std::wstring& folder,
                  const std::wstring& device);
