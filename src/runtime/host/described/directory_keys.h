#pragma once

/// What the parts of `Directory` share.

#include <cstddef>
#include <string>
#include <string_view>

#include "runtime/host/described/directory.h"
#include "runtime/host/described/fold.h"

namespace described {

/// The member that stands for every user of the group's computer or domain.
inline constexpr std::wstring_view allUsers = L"*";

/// By which accounts are found: the folded full name.
inline std::wstring fullKey(std::wstring_view domain, std::wstring_view name) {
    return folded(domain) + L"\\" + folded(name);
}

inline std::size_t indexOf(Scope scope) {
    return scope == Scope::computer ? 0 : 1;
}

inline Scope scopeOf(GroupKind kind) {
    return kind == GroupKind::local ? Scope::computer : Scope::domain;
}

}  // namespace described
