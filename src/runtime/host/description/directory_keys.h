#pragma once

/// Where accounts live, and the keys by which they are found.

#include <cstddef>
#include <string>
#include <string_view>

#include "runtime/host/letter_case.h"

namespace description {

/// At this computer, or in its domain.
enum class Scope { computer, domain };

enum class GroupKind { local, domainLocal, global };

/// The member that stands for every user of the group's computer or domain.
inline constexpr std::wstring_view allUsers = L"*";

/// By which accounts are found: the folded full name.
inline std::wstring fullKey(std::wstring_view domain, std::wstring_view name) {
    return host::folded(domain) + L"\\" + host::folded(name);
}

inline std::size_t indexOf(Scope scope) {
    return scope == Scope::computer ? 0 : 1;
}

inline Scope scopeOf(GroupKind kind) {
    return kind == GroupKind::local ? Scope::computer : Scope::domain;
}

}  // namespace description
