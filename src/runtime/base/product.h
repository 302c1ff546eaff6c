#pragma once

/// Where the product keeps its settings, below HKEY_LOCAL_MACHINE, and how it names its parts.

namespace product {

// Keys: of the client, of the backup client, of the backup API on a 32-bit and on a 64-bit system.
inline constexpr const wchar_t* clientKey = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient";
inline constexpr const wchar_t* backupClientKey = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\BackupClient";
inline constexpr const wchar_t* apiKey32 = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\Api";
inline constexpr const wchar_t* apiKey64 = L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\Api64";

// Values in them, and in the keys of the client's programs.
inline constexpr const wchar_t* pathValue = L"Path";
inline constexpr const wchar_t* versionValue = L"PtfLevel";
inline constexpr const wchar_t* logLevelValue = L"LogLevel";

/// The file-system filter driver: its service, and its file without ending.
inline constexpr const wchar_t* driver = L"rkhsmdrv";

}  // namespace product
