#pragma once

/// The report file, in the current directory.
inline constexpr const wchar_t* reportFileName = L"check_installation.txt";

/// Whether the report file exists. Where that cannot be told, `originator` logs it and the answer is
/// `unless`.
bool reportFileExists(const wchar_t* originator, bool unless);
