#pragma once

#include <string>

namespace host {

/// "dc01.corp.example" is "dc01"; an address stays one.
inline std::wstring computerName(const std::wstring& name) {
    const bool isAddress = name.find_first_not_of(L"0123456789.:") == std::wstring::npos;
    return isAddress ? name : name.substr(0, name.find(L'.'));
}

}  // namespace host
