#include <algorithm>
#include <string_view>

#include "runtime/host/description/environment.h"
#include "runtime/host/description/state.h"
#include "runtime/host/host.h"
#include "runtime/host/letter_case.h"

namespace host {

namespace {

constexpr std::uint32_t invalidParameter = 87;
constexpr std::uint32_t badPathName = 161;
constexpr std::size_t longestKeyName = 255;

/// A key, or why there is none.
struct FoundKey {
    const description::RegistryKey* key = nullptr;
    description::Cause cause;
};

bool hasTooLongName(std::wstring_view keyPath) {
    for (;;) {
        const std::size_t end = keyPath.find(L'\\');
        if (std::min(end, keyPath.size()) > longestKeyName) return true;
        if (end == std::wstring_view::npos) return false;
        keyPath.remove_prefix(end + 1);
    }
}

/// As on Windows, who may not read a key is told all the same that nothing stands below it.
FoundKey findKey(const std::wstring& keyPath) {
    static const description::RegistryKey hive;
    if (keyPath.empty()) return {&hive, {}};
    if (keyPath.starts_with(L'\\')) return {nullptr, {true, false, badPathName}};
    if (hasTooLongName(keyPath)) return {nullptr, {true, false, invalidParameter}};
    const description::Registry& registry = description::machine().registry;
    std::wstring path = folded(keyPath);
    while (path.ends_with(L'\\'))
        path.pop_back();
    const auto found = registry.find(path);
    if (found == registry.end()) return {};
    for (std::size_t end = path.find(L'\\'); end != std::wstring::npos; end = path.find(L'\\', end + 1)) {
        const auto above = registry.find(path.substr(0, end));
        if (above != registry.end() && above->second.cause.any) return {nullptr, above->second.cause};
    }
    return {&found->second, found->second.cause};
}

/// The stored units up to the first NUL; a single byte at the end is no unit.
std::wstring storedText(const std::string& bytes) {
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        if (low == 0 && high == 0) break;
        text += static_cast<wchar_t>(low | high << 8);
    }
    return text;
}

std::uint32_t storedNumber(const std::string& bytes) {
    std::uint32_t number = 0;
    for (std::size_t index = 4; index-- > 0;)
        number = number << 8U | static_cast<unsigned char>(bytes[index]);
    return number;
}

RegistryValue valueOf(const description::RegistryData& data) {
    RegistryValue value;
    value.typeName = registryTypeName(data.type, data.bytes.size());
    if (data.type == description::registryText) {
        value.kind = RegistryValue::Kind::text;
        value.text = storedText(data.bytes);
    } else if (data.type == description::registryExpandedText) {
        value.kind = RegistryValue::Kind::text;
        value.text = description::expanded(description::machine(), storedText(data.bytes));
    } else if (data.type == description::registryNumber && data.bytes.size() == 4) {
        value.kind = RegistryValue::Kind::number;
        value.number = storedNumber(data.bytes);
    }
    return value;
}

}  // namespace

Answer<Done> registryKey(const std::wstring& keyPath) {
    const FoundKey found = findKey(keyPath);
    if (found.cause.any) return description::answerOf<Done>(found.cause, description::notThere);
    return found.key != nullptr ? Answer<Done>(Done{}) : Answer<Done>::missing();
}

Answer<Done> registryValueExists(const std::wstring& keyPath, const std::wstring& valueName) {
    const Answer<RegistryValue> value = registryValue(keyPath, valueName);
    return value.found() ? Answer<Done>(Done{}) : Answer<Done>::without(value);
}

Answer<RegistryValue> registryValue(const std::wstring& keyPath, const std::wstring& valueName) {
    const FoundKey found = findKey(keyPath);
    if (found.cause.any) return description::answerOf<RegistryValue>(found.cause, description::notThere);
    if (found.key == nullptr) return Answer<RegistryValue>::missing();
    const auto value = found.key->values.find(folded(valueName));
    if (value == found.key->values.end()) return Answer<RegistryValue>::missing();
    const description::Cause& cause = value->second.cause;
    return cause.any ? description::answerOf<RegistryValue>(cause, description::notThere)
                     : valueOf(value->second);
}

}  // namespace host
