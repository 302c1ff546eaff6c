#pragma once

/// Where the product keeps its settings, below HKEY_LOCAL_MACHINE.

#include "runtime/base/product.h"

namespace registry {

inline constexpr const wchar_t* clientKey = product::clientKey;
inline constexpr const wchar_t* backupClientKey = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\BackupClient";
inline constexpr const wchar_t* apiKey = product::apiKey32;
inline constexpr const wchar_t* api64Key = product::apiKey64;

inline constexpr const wchar_t* pathValue = L"Path";
inline constexpr const wchar_t* versionValue = L"PtfLevel";

}  // namespace registry
