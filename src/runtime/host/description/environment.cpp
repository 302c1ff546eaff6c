#include "runtime/host/description/environment.h"

#include <optional>

#include "runtime/host/letter_case.h"

namespace description {

namespace {

/// The variables that every Windows has, from the facts of the machine.
std::optional<std::wstring> systemVariable(const SystemDescription& system, const std::wstring& name) {
    const std::wstring drive = system.windowsDirectory.substr(0, 2);
    if (name == L"systemroot" || name == L"windir") return system.windowsDirectory;
    if (name == L"systemdrive") return drive;
    if (name == L"programfiles" || name == L"programw6432") return drive + L"\\Program Files";
    if (name == L"programfiles(x86)") return drive + L"\\Program Files (x86)";
    if (name == L"commonprogramfiles") return drive + L"\\Program Files\\Common Files";
    if (name == L"programdata" || name == L"allusersprofile") return drive + L"\\ProgramData";
    if (name == L"public") return drive + L"\\Users\\Public";
    if (name == L"computername") return system.facts.computerName;
    return std::nullopt;
}

std::optional<std::wstring> variable(const SystemDescription& system, std::wstring_view name) {
    const std::wstring key = host::folded(name);
    const auto described = system.environment.find(key);
    if (described != system.environment.end()) return described->second;
    return systemVariable(system, key);
}

}  // namespace

std::wstring expanded(const Machine& machine, std::wstring_view text) {
    std::wstring result;
    while (!text.empty()) {
        const std::size_t begin = text.find(L'%');
        const std::size_t end = begin == std::wstring_view::npos ? begin : text.find(L'%', begin + 1);
        if (end == std::wstring_view::npos) break;
        const auto value = variable(machine.system, text.substr(begin + 1, end - begin - 1));
        result += text.substr(0, begin);
        if (value) {
            result += *value;
            text.remove_prefix(end + 1);
        } else {
            result += text.substr(begin, end - begin);
            text.remove_prefix(end);
        }
    }
    return result.append(text);
}

}  // namespace description
