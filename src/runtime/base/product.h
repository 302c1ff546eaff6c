#pragma once

/// What the client's runtime knows of its own product.

namespace product {

/// The client's registry key below HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* clientKey = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient";

/// The backup API's keys: on a 32-bit system, on a 64-bit system.
inline constexpr const wchar_t* apiKey32 = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\Api";
inline constexpr const wchar_t* apiKey64 = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\Api64";

/// The service that runs the file-system filter driver.
inline constexpr const wchar_t* driverService = L"rkhsmdrv";

}  // namespace product
