/// The real registry, over values that the tests stage themselves.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/host/host.h"
#include "runtime/host/os.h"
#include "tests/runtime/base/staged_registry.h"

namespace {

using host::registryKey;
using host::registryValue;
using host::RegistryValue;
using host::Status;

class HostRegistry : public StagedRegistry {
protected:
    void stage(const std::string& name, DWORD type, const std::vector<BYTE>& bytes) {
        StagedRegistry::stage(name, type, bytes.data(), bytes.size());
    }
    void stageText(const std::string& name, DWORD type, const std::wstring& text) {
        const auto* bytes = reinterpret_cast<const BYTE*>(text.c_str());
        stage(name, type, std::vector<BYTE>(bytes, bytes + (text.size() + 1) * sizeof(wchar_t)));
    }

    /// The value as text; a remark where it is none.
    static std::wstring textOf(const wchar_t* name) {
        const host::Answer<RegistryValue> answer = registryValue(keyPath, name);
        if (!answer.found()) return L"<status " + std::to_wstring(static_cast<int>(answer.status)) + L">";
        return answer.value.kind == RegistryValue::Kind::text ? answer.value.text
                                                              : L"<" + answer.value.typeName + L">";
    }
};

TEST_F(HostRegistry, AKeyIsThereOrNot) {
    EXPECT_EQ(registryKey(keyPath).status, Status::found);
    EXPECT_EQ(registryKey(L"SOFTWARE\\KvxTest\\Below").status, Status::missing);
    EXPECT_EQ(registryKey(L"SOFTWARE\\KvxTestNoSuchKey").status, Status::missing);
}

TEST_F(HostRegistry, AMissingValueIsMissingWhetherItsKeyIsThereOrNot) {
    EXPECT_EQ(registryValue(keyPath, L"None").status, Status::missing);
    EXPECT_EQ(registryValue(L"SOFTWARE\\KvxTestNoSuchKey", L"None").status, Status::missing);
}

TEST_F(HostRegistry, ReadsTextOfAnyLength) {
    stageText("Short", REG_SZ, L"6.1.5.2");
    stageText("Long", REG_SZ, std::wstring(5000, L'\u00e9'));
    stageText("Empty", REG_SZ, L"");
    EXPECT_EQ(textOf(L"Short"), L"6.1.5.2");
    EXPECT_EQ(textOf(L"Long"), std::wstring(5000, L'\u00e9'));
    EXPECT_EQ(textOf(L"Empty"), L"");
}

TEST_F(HostRegistry, ReadsTextThatWasStoredBadly) {
    stage("NoTerminator", REG_SZ, {'a', 0, 'b', 0});
    stage("OddSize", REG_SZ, {'a', 0, 'b', 0, 'c'});
    stage("EmbeddedNul", REG_SZ, {'a', 0, 0, 0, 'b', 0, 0, 0});
    stage("NoBytes", REG_SZ, {});
    EXPECT_EQ(textOf(L"NoTerminator"), L"ab");
    EXPECT_EQ(textOf(L"OddSize"), L"ab");
    EXPECT_EQ(textOf(L"EmbeddedNul"), L"a");
    EXPECT_EQ(textOf(L"NoBytes"), L"");
}

TEST_F(HostRegistry, ExpandsVariables) {
    SetEnvironmentVariableW(L"KVX_TEST_FOLDER", L"C:\\Program Files");
    stageText("Path", REG_EXPAND_SZ, L"%KVX_TEST_FOLDER%\\client");
    stageText("Unknown", REG_EXPAND_SZ, L"%KVX_TEST_NOTHING%\\client");
    stageText("Plain", REG_SZ, L"%KVX_TEST_FOLDER%\\client");
    EXPECT_EQ(textOf(L"Path"), L"C:\\Program Files\\client");
    EXPECT_EQ(textOf(L"Unknown"), L"%KVX_TEST_NOTHING%\\client");
    EXPECT_EQ(textOf(L"Plain"), L"%KVX_TEST_FOLDER%\\client");
}

TEST_F(HostRegistry, ReadsNumbersOfFourBytesOnly) {
    stage("Number", REG_DWORD, {0x78, 0x56, 0x34, 0x92});
    const host::Answer<RegistryValue> answer = registryValue(keyPath, L"Number");
    ASSERT_TRUE(answer.found());
    EXPECT_EQ(answer.value.kind, RegistryValue::Kind::number);
    EXPECT_EQ(answer.value.number, 0x92345678U);

    stage("TwoBytes", REG_DWORD, {1, 0});
    stage("OneByte", REG_DWORD, {1});
    EXPECT_EQ(textOf(L"TwoBytes"), L"<REG_DWORD of 2 bytes>");
    EXPECT_EQ(textOf(L"OneByte"), L"<REG_DWORD of 1 byte>");
}

TEST_F(HostRegistry, NamesOtherTypes) {
    stage("Binary", REG_BINARY, {1, 2, 3});
    stage("List", REG_MULTI_SZ, {'a', 0, 0, 0, 0, 0});
    stage("Long", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0});
    stage("Strange", 77, {1});
    EXPECT_EQ(textOf(L"Binary"), L"<REG_BINARY>");
    EXPECT_EQ(textOf(L"List"), L"<REG_MULTI_SZ>");
    EXPECT_EQ(textOf(L"Long"), L"<REG_QWORD>");
    EXPECT_EQ(textOf(L"Strange"), L"<registry type 77>");
}

TEST_F(HostRegistry, ARefusedKeyIsNotAMissingOne) {
    // Nobody may read the key; its owner may still change that.
    SECURITY_DESCRIPTOR nobody{};
    ACL empty{};
    ASSERT_TRUE(InitializeAcl(&empty, sizeof empty, ACL_REVISION));
    ASSERT_TRUE(InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&nobody, TRUE, &empty, FALSE));
    HKEY closed = nullptr;
    const std::wstring path = std::wstring(keyPath) + L"\\Closed";
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0,
                              KEY_ALL_ACCESS | KEY_WOW64_64KEY, nullptr, &closed, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(RegSetKeySecurity(closed, DACL_SECURITY_INFORMATION, &nobody), ERROR_SUCCESS);

    const host::Answer<host::Done> key = registryKey(path);
    EXPECT_EQ(key.status, Status::refused);
    EXPECT_EQ(key.failure.code, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(registryValue(path, L"Any").status, Status::refused);

    SetSecurityDescriptorDacl(&nobody, TRUE, nullptr, FALSE);
    RegSetKeySecurity(closed, DACL_SECURITY_INFORMATION, &nobody);
    RegCloseKey(closed);
    RegDeleteKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), KEY_WOW64_64KEY, 0);
}

}  // namespace
