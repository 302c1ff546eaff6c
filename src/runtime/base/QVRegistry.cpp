#include "runtime/base/QVRegistry.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/base/product.h"
#include "runtime/host/host.h"

using host::RegistryValue;

namespace {

constexpr std::uint32_t errorFileNotFound = 2;

CString named(const CString& valueName, const CString& keyPath) {
    return formatted(L"registry value '%s' of key '%s'", valueName, keyPath);
}

void requireLocalMachine(HKEY root) {
    if (root != HKEY_LOCAL_MACHINE) raise(QVErrno::_E_::Unspecific, L"only HKEY_LOCAL_MACHINE can be asked");
}

/// The value, which must be of `kind`.
RegistryValue read(const CString& valueName, const CString& keyPath, RegistryValue::Kind kind,
                   const wchar_t* expected) {
    auto answer = host::registryValue(keyPath.units(), valueName.units());
    if (answer.isMissing()) {
        raise(QVErrno::_E_::System, named(valueName, keyPath) + L" is missing", errorFileNotFound);
    }
    if (!answer.found()) raise(answer.failure, named(valueName, keyPath) + L" cannot be read");
    if (answer.value.kind != kind) {
        raise(QVErrno::_E_::Unspecific, formatted(L"%s is %s, but %s was expected", named(valueName, keyPath),
                                                  answer.value.typeName.c_str(), expected));
    }
    return std::move(answer.value);
}

}  // namespace

int QVRegistry::mf_PathExists(const CString& keyPath, HKEY root) {
    if (operation::answersZero(L"QVRegistry::mf_PathExists", keyPath)) return 0;
    requireLocalMachine(root);
    const auto answer = host::registryKey(keyPath.units());
    if (answer.unanswered()) raise(answer.failure, formatted(L"registry key '%s' cannot be opened", keyPath));
    return answer.found() ? 1 : 0;
}

int QVRegistry::mf_exists(const CString& valueName, const CString& keyPath, HKEY root) {
    if (operation::answersZero(L"QVRegistry::mf_exists", keyPath, valueName)) return 0;
    requireLocalMachine(root);
    const auto answer = host::registryValueExists(keyPath.units(), valueName.units());
    if (answer.unanswered()) raise(answer.failure, named(valueName, keyPath) + L" cannot be checked");
    return answer.found() ? 1 : 0;
}

void QVRegistry::mf_getValue(const CString& valueName, unsigned long& value, const CString& keyPath,
                             HKEY root) {
    if (operation::answersZero(L"QVRegistry::mf_getValue", keyPath, valueName)) {
        value = 0;
        return;
    }
    requireLocalMachine(root);
    value = read(valueName, keyPath, RegistryValue::Kind::number, L"a 32-bit number (REG_DWORD)").number;
}

void QVRegistry::mf_getValue(const CString& valueName, CString& value, const CString& keyPath, HKEY root) {
    if (operation::answersZero(L"QVRegistry::mf_getValue", keyPath, valueName)) {
        value.Empty();
        return;
    }
    requireLocalMachine(root);
    value = CString(read(valueName, keyPath, RegistryValue::Kind::text, L"a text (REG_SZ)").text);
}

const CString QVRegistry::mf_getRegistryRoot(const CString& subKey) {
    if (operation::answersZero(L"QVRegistry::mf_getRegistryRoot", subKey)) return {};
    const CString root(product::clientKey);
    return subKey.IsEmpty() ? root : root + L"\\" + subKey;
}
