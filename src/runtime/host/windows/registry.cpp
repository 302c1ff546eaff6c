#include <cstring>

#include "runtime/host/host.h"
#include "runtime/host/windows/buffer.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/handle.h"

namespace host {

namespace {

DWORD open(const std::wstring& keyPath, windows::RegistryKeyHandle& key) {
    return static_cast<DWORD>(RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath.c_str(), 0,
                                            KEY_QUERY_VALUE | KEY_WOW64_64KEY, key.receive()));
}

/// Whoever wrote the value may have left out its terminator, or half of its last unit.
std::wstring textOf(const BYTE* bytes, std::size_t size) {
    std::wstring text(size / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes, text.size() * sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

Answer<RegistryValue> expanded(RegistryValue value) {
    if (value.text.empty()) return value;
    const windows::FilledText text = windows::fillTextByLength([&](wchar_t* units, DWORD size) {
        return ExpandEnvironmentStringsW(value.text.c_str(), units, size);
    });
    if (text.code != ERROR_SUCCESS) return windows::unanswered<RegistryValue>(text.code);
    value.text = text.text;
    return value;
}

Answer<RegistryValue> valueOf(DWORD type, const BYTE* bytes, std::size_t size) {
    RegistryValue value;
    value.typeName = registryTypeName(type, size);
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        value.kind = RegistryValue::Kind::text;
        value.text = textOf(bytes, size);
        if (type == REG_EXPAND_SZ) return expanded(std::move(value));
    } else if (type == REG_DWORD && size == sizeof value.number) {
        value.kind = RegistryValue::Kind::number;
        std::memcpy(&value.number, bytes, size);
    }
    return value;
}

}  // namespace

Answer<Done> registryKey(const std::wstring& keyPath) {
    windows::RegistryKeyHandle key;
    const DWORD code = open(keyPath, key);
    return code == ERROR_SUCCESS ? Answer<Done>(Done{}) : windows::missingOrUnanswered<Done>(code);
}

Answer<Done> registryValueExists(const std::wstring& keyPath, const std::wstring& valueName) {
    windows::RegistryKeyHandle key;
    const DWORD opened = open(keyPath, key);
    if (opened != ERROR_SUCCESS) return windows::missingOrUnanswered<Done>(opened);
    const auto code = static_cast<DWORD>(
        RegQueryValueExW(key.get(), valueName.c_str(), nullptr, nullptr, nullptr, nullptr));
    return code == ERROR_SUCCESS ? Answer<Done>(Done{}) : windows::missingOrUnanswered<Done>(code);
}

Answer<RegistryValue> registryValue(const std::wstring& keyPath, const std::wstring& valueName) {
    windows::RegistryKeyHandle key;
    const DWORD opened = open(keyPath, key);
    if (opened != ERROR_SUCCESS) return windows::missingOrUnanswered<RegistryValue>(opened);

    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
    const windows::Filled filled = windows::fill(bytes, [&](BYTE* memory, DWORD& size) {
        return static_cast<DWORD>(
            RegQueryValueExW(key.get(), valueName.c_str(), nullptr, &type, memory, &size));
    });
    if (filled.code != ERROR_SUCCESS) return windows::missingOrUnanswered<RegistryValue>(filled.code);
    return valueOf(type, bytes.data(), std::min<std::size_t>(filled.size, bytes.size()));
}

}  // namespace host
