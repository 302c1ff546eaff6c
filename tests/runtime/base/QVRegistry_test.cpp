#include "runtime/base/QVRegistry.h"

#include "tests/runtime/base/staged_registry.h"
#include "tests/runtime/error_of.h"

namespace {

class QVRegistryTest : public StagedRegistry {
protected:
    static constexpr const wchar_t* missingKey = L"SOFTWARE\\KvxTestNoSuchKey";

    static unsigned long numberOf(const wchar_t* name) {
        unsigned long value = 0;
        QVRegistry::mf_getValue(name, value, keyPath, HKEY_LOCAL_MACHINE);
        return value;
    }
    static CString textOf(const wchar_t* name) {
        CString value;
        QVRegistry::mf_getValue(name, value, keyPath, HKEY_LOCAL_MACHINE);
        return value;
    }

    /// The error of a read; `value` must be what it was before.
    static std::wstring numberErrorOf(const wchar_t* name, const wchar_t* key = keyPath) {
        unsigned long value = 4711;
        const std::wstring text =
            errorOf([&] { QVRegistry::mf_getValue(name, value, key, HKEY_LOCAL_MACHINE); });
        EXPECT_EQ(value, 4711U);
        return text;
    }
    static std::wstring textErrorOf(const wchar_t* name, const wchar_t* key = keyPath) {
        CString value(L"before");
        const std::wstring text =
            errorOf([&] { QVRegistry::mf_getValue(name, value, key, HKEY_LOCAL_MACHINE); });
        EXPECT_EQ(value, L"before");
        return text;
    }
};

TEST_F(QVRegistryTest, RootIsTheClientsKey) {
    EXPECT_EQ(QVRegistry::mf_getRegistryRoot(L""), L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient");
    EXPECT_EQ(QVRegistry::mf_getRegistryRoot(L"kvxgui"),
              L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient\\kvxgui");
    EXPECT_EQ(QVRegistry::mf_getRegistryRoot(L"a\\b"),
              L"SOFTWARE\\Norvel\\Orlix\\CurrentVersion\\HsmClient\\a\\b");
}

TEST_F(QVRegistryTest, AMissingKeyIsAnAnswer) {
    EXPECT_NE(QVRegistry::mf_PathExists(keyPath, HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(QVRegistry::mf_PathExists(missingKey, HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(QVRegistry::mf_PathExists(L"SOFTWARE\\KvxTest\\Below", HKEY_LOCAL_MACHINE), 0);
}

TEST_F(QVRegistryTest, AMissingValueIsAnAnswerWhetherItsKeyIsThereOrNot) {
    stageText("Text", "x");
    EXPECT_NE(QVRegistry::mf_exists(L"Text", keyPath, HKEY_LOCAL_MACHINE), 0);
    EXPECT_NE(QVRegistry::mf_exists(L"TEXT", L"software\\kvxtest", HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(QVRegistry::mf_exists(L"Other", keyPath, HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(QVRegistry::mf_exists(L"Text", missingKey, HKEY_LOCAL_MACHINE), 0);
}

TEST_F(QVRegistryTest, AValueOfAnyTypeExists) {
    stageNumber("Number", 0);
    stageText("Empty", "");
    stageByte("Byte", 0);
    for (const wchar_t* name : {L"Number", L"Empty", L"Byte"}) {
        EXPECT_NE(QVRegistry::mf_exists(name, keyPath, HKEY_LOCAL_MACHINE), 0) << CString(name).units();
    }
}

TEST_F(QVRegistryTest, ReadsNumbersAndTexts) {
    stageNumber("Zero", 0);
    stageNumber("Number", 0x92345678);
    stageText("Text", "6.1.5.2");
    stageText("Empty", "");
    EXPECT_EQ(numberOf(L"Zero"), 0U);
    EXPECT_EQ(numberOf(L"Number"), 0x92345678U);
    EXPECT_EQ(textOf(L"Text"), L"6.1.5.2");
    EXPECT_EQ(textOf(L"Empty"), L"");
}

TEST_F(QVRegistryTest, ReadingWhatIsMissingIsAnError) {
    const std::wstring expected =
        L"System call failed: registry value 'None' of key 'SOFTWARE\\KvxTest' is missing, system error 2: ";
    EXPECT_TRUE(holds(numberErrorOf(L"None"), expected));
    EXPECT_TRUE(holds(textErrorOf(L"None"), expected));
    EXPECT_TRUE(holds(numberErrorOf(L"None", missingKey), L"is missing, system error 2: "));
    EXPECT_TRUE(holds(textErrorOf(L"None", missingKey), L"is missing, system error 2: "));
}

TEST_F(QVRegistryTest, ReadingAnotherTypeIsAnErrorThatNamesBoth) {
    stageNumber("Number", 1);
    stageText("Text", "1");
    stageByte("Byte", 1);
    EXPECT_TRUE(holds(numberErrorOf(L"Text"), L"is REG_SZ, but a 32-bit number (REG_DWORD) was expected"));
    EXPECT_TRUE(holds(numberErrorOf(L"Byte"), L"is REG_BINARY, but a 32-bit number"));
    EXPECT_TRUE(holds(textErrorOf(L"Number"), L"is REG_DWORD, but a text (REG_SZ) was expected"));
    EXPECT_TRUE(holds(textErrorOf(L"Byte"), L"is REG_BINARY, but a text"));
}

TEST_F(QVRegistryTest, AnotherHiveIsNeverAnsweredFromThisOne) {
    stageText("Text", "x");
    stageNumber("Number", 1);
    HKEY const none = nullptr;
    unsigned long number = 4711;
    CString text(L"before");
    const std::wstring refusal = L"Operation failed: only HKEY_LOCAL_MACHINE can be asked";
    EXPECT_EQ(errorOf([&] { QVRegistry::mf_PathExists(keyPath, none); }), refusal);
    EXPECT_EQ(errorOf([&] { QVRegistry::mf_exists(L"Text", keyPath, none); }), refusal);
    EXPECT_EQ(errorOf([&] { QVRegistry::mf_getValue(L"Number", number, keyPath, none); }), refusal);
    EXPECT_EQ(errorOf([&] { QVRegistry::mf_getValue(L"Text", text, keyPath, none); }), refusal);
    EXPECT_EQ(number, 4711U);
    EXPECT_EQ(text, L"before");
}

}  // namespace
