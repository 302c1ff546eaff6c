#pragma once

/// Comparison without regard to case, as Windows compares names of files, keys, accounts and services.

#include <string>
#include <string_view>

namespace description {

/// The text in one case: ASCII, Latin, Greek and Cyrillic letters, the same in every locale.
std::wstring folded(std::wstring_view text);

bool equalFolded(std::wstring_view left, std::wstring_view right);

}  // namespace description
