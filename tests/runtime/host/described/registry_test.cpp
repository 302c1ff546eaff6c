#include <fstream>

#include "runtime/host/host.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using Kind = host::RegistryValue::Kind;

class Registry : public DescribedMachine {
protected:
    /// Describes the values of the key SOFTWARE\Test.
    static void describeValues(const std::string& lines) {
        describe("[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test]\n" + lines + "\n");
    }
    static host::Answer<host::RegistryValue> value(const std::wstring& name) {
        return host::registryValue(L"SOFTWARE\\Test", name);
    }
    static std::wstring text(const std::wstring& name) {
        const auto answer = value(name);
        EXPECT_TRUE(answer.found());
        EXPECT_EQ(answer.value.kind, Kind::text);
        return answer.value.text;
    }
};

}  // namespace

TEST_F(Registry, KeysAndThoseAboveThem) {
    describe("[registry]\n[HKLM\\SOFTWARE\\A\\B\\]\n");
    EXPECT_TRUE(host::registryKey(L"SOFTWARE").found());
    EXPECT_TRUE(host::registryKey(L"software\\a").found());
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\A\\B\\").found());
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\A\\C").isMissing());
    EXPECT_TRUE(host::registryKey(L"A").isMissing());
    EXPECT_EQ(host::registryKey(L"\\SOFTWARE").failure.code, 161U);
}

TEST_F(Registry, Texts) {
    describeValues(R"("Path"="C:\\Program Files\\\"x\"")"
                   "\n@=\"default\"\n\"Empty\"=\"\"  ; comment\n\"Umlaut\"=\"\xC3\xA4\xE2\x82\xAC\"");
    EXPECT_EQ(text(L"path"), L"C:\\Program Files\\\"x\"");
    EXPECT_EQ(text(L""), L"default");
    EXPECT_EQ(text(L"Empty"), L"");
    EXPECT_EQ(text(L"Umlaut"), L"\u00E4\u20AC");
    EXPECT_EQ(value(L"Path").value.typeName, L"REG_SZ");
    EXPECT_TRUE(value(L"Nothing").isMissing());
    EXPECT_TRUE(host::registryValue(L"SOFTWARE\\None", L"Path").isMissing());
}

TEST_F(Registry, TextsThatHoldLineEnds) {
    describeValues("\"Two\"=\"first\n  second\"\n\"After\"=\"x\"");
    EXPECT_EQ(text(L"Two"), L"first\r\n  second");
    EXPECT_EQ(text(L"After"), L"x");
}

TEST_F(Registry, ExpandedTexts) {
    describe(
        "[system]\nwindows directory = D:\\WINNT\n[environment]\nData = E:\\Data\n"
        "[registry]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test]\n"
        "\"a\"=hex(2):25,00,53,00,79,00,73,00,74,00,65,00,6d,00,52,00,6f,00,6f,00,74,00,25,00,5c,00,78,00,00,00\n"
        "\"b\"=hex(2):25,00,64,00,61,00,74,00,61,00,25,00,25,00,6e,00,6f,00,25,00,25,00\n"
        "\"c\"=\"%SystemRoot%\"\n");
    EXPECT_EQ(text(L"a"), L"D:\\WINNT\\x");
    EXPECT_EQ(value(L"a").value.typeName, L"REG_EXPAND_SZ");
    EXPECT_EQ(text(L"b"), L"E:\\Data%no%%");
    EXPECT_EQ(text(L"c"), L"%SystemRoot%");
}

TEST_F(Registry, RawTextsAreReadSafely) {
    describeValues(
        "\"unterminated\"=hex(1):61,00,62,00\n"
        "\"odd\"=hex(1):61,00,62,00,63\n"
        "\"single\"=hex(1):61\n"
        "\"empty\"=hex(1):\n"
        "\"nul\"=hex(1):61,00,00,00,62,00,00,00");
    EXPECT_EQ(text(L"unterminated"), L"ab");
    EXPECT_EQ(text(L"odd"), L"ab");
    EXPECT_EQ(text(L"single"), L"");
    EXPECT_EQ(text(L"empty"), L"");
    EXPECT_EQ(text(L"nul"), L"a");
}

TEST_F(Registry, Numbers) {
    describeValues("\"a\"=dword:0000000f\n\"b\"=dword:FFFFFFFF\n\"c\"=hex(4):01,02,03,04\n\"d\"=dword:1");
    EXPECT_EQ(value(L"a").value.kind, Kind::number);
    EXPECT_EQ(value(L"a").value.number, 15U);
    EXPECT_EQ(value(L"b").value.number, 0xFFFFFFFFU);
    EXPECT_EQ(value(L"c").value.number, 0x04030201U);
    EXPECT_EQ(value(L"d").value.number, 1U);
    EXPECT_EQ(value(L"a").value.typeName, L"REG_DWORD");
}

TEST_F(Registry, NumbersOfAnotherSizeAreNone) {
    describeValues("\"two\"=hex(4):0f,00\n\"none\"=hex(4):\n\"five\"=hex(4):1,2,3,4,5");
    EXPECT_EQ(value(L"two").value.kind, Kind::other);
    EXPECT_EQ(value(L"two").value.typeName, L"REG_DWORD of 2 bytes");
    EXPECT_EQ(value(L"none").value.typeName, L"REG_DWORD of 0 bytes");
    EXPECT_EQ(value(L"five").value.typeName, L"REG_DWORD of 5 bytes");
}

TEST_F(Registry, OtherTypesAreNamed) {
    describeValues(
        "\"bin\"=hex:01,02\n\"multi\"=hex(7):61,00,00,00,00,00\n\"q\"=hex(b):1,0,0,0,0,0,0,0\n"
        "\"none\"=hex(0):\n"
        "\"odd\"=hex(ff):");
    EXPECT_EQ(value(L"bin").value.kind, Kind::other);
    EXPECT_EQ(value(L"bin").value.typeName, L"REG_BINARY");
    EXPECT_EQ(value(L"multi").value.typeName, L"REG_MULTI_SZ");
    EXPECT_EQ(value(L"q").value.typeName, L"REG_QWORD");
    EXPECT_EQ(value(L"none").value.typeName, L"REG_NONE");
    EXPECT_EQ(value(L"odd").value.typeName, L"registry type 255");
}

TEST_F(Registry, BytesGoOnInTheNextLine) {
    describeValues("\"a\"=hex(1):61,00,\\\n  62,00,\\\n  00,00\n\"b\"=\"x\"");
    EXPECT_EQ(text(L"a"), L"ab");
    EXPECT_EQ(text(L"b"), L"x");
}

TEST_F(Registry, ValuesAndKeysAreTakenOut) {
    describeValues(
        "\"a\"=\"1\"\n\"b\"=\"2\"\n\"A\"=-\n\"none\"=-\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test\\Sub]\n"
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test2]\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\TEST\\SUB]");
    EXPECT_TRUE(value(L"a").isMissing());
    EXPECT_EQ(text(L"b"), L"2");
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test\\Sub").isMissing());
    describeValues(
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test\\Sub\\Deep]\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Test2]\n"
        "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Test]");
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test\\Sub\\Deep").isMissing());
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test").isMissing());
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test2").found());
}

TEST_F(Registry, NaturalCausesOfValues) {
    describeValues("\"a\"=refused\n\"b\"=error 1018\n\"c\"=error 2\n\"d\"=refused 1314");
    EXPECT_EQ(value(L"a").status, host::Status::refused);
    EXPECT_EQ(value(L"a").failure.code, 5U);
    EXPECT_EQ(value(L"b").status, host::Status::failed);
    EXPECT_EQ(value(L"b").failure.code, 1018U);
    EXPECT_TRUE(value(L"c").isMissing());
    EXPECT_EQ(value(L"d").failure.code, 1314U);
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test").found());
}

TEST_F(Registry, NaturalCausesOfKeysHoldForThoseBelow) {
    describe(
        "[registry]\n[HKEY_LOCAL_MACHINE\\A] refused\n\"x\"=\"1\"\n[HKEY_LOCAL_MACHINE\\A\\B]\n\"x\"=\"1\"\n"
        "[HKEY_LOCAL_MACHINE\\C] error 1018  # being deleted\n[HKEY_LOCAL_MACHINE\\AB]\n");
    EXPECT_EQ(host::registryKey(L"A").status, host::Status::refused);
    EXPECT_EQ(host::registryValue(L"A", L"x").status, host::Status::refused);
    EXPECT_EQ(host::registryValue(L"A\\B", L"x").status, host::Status::refused);
    EXPECT_TRUE(host::registryKey(L"A\\Other").isMissing());
    EXPECT_EQ(host::registryKey(L"C").failure.code, 1018U);
    EXPECT_TRUE(host::registryKey(L"AB").found());
}

TEST_F(Registry, TheHiveItselfIsThere) {
    describe("");
    EXPECT_TRUE(host::registryKey(L"").found());
    EXPECT_TRUE(host::registryValue(L"", L"x").isMissing());
}

TEST_F(Registry, NamesOfKeysHaveTheirLimit) {
    describe("[registry]\n[HKEY_LOCAL_MACHINE\\A]\n");
    const std::wstring longest(255, L'k');
    EXPECT_TRUE(host::registryKey(L"A\\" + longest).isMissing());
    EXPECT_TRUE(host::registryKey(L"A\\" + longest + L"\\" + longest).isMissing());
    EXPECT_EQ(host::registryKey(L"A\\" + longest + L"k").failure.code, 87U);
    EXPECT_EQ(host::registryKey(longest + L"k\\A").failure.code, 87U);
    EXPECT_EQ(host::registryValue(L"A\\" + longest + L"k", L"x").failure.code, 87U);
}

TEST_F(Registry, OtherHivesArePassedOver) {
    describe("[registry]\n[HKEY_CURRENT_USER\\SOFTWARE\\Test]\n\"a\"=\"1\"\n");
    EXPECT_TRUE(host::registryKey(L"SOFTWARE\\Test").isMissing());
}

TEST_F(Registry, ExportsInUtf16) {
    const TemporaryDirectory here;
    std::ofstream("machine.txt") << "[machine]\nregistry = a.reg\n";
    std::string bytes = "\xFF\xFE";
    for (
        const wchar_t unit : std::wstring(
            L"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\A]\r\n\"x\"=\"\u20AC\"\r\n")) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    std::ofstream("a.reg", std::ios::binary) << bytes;
    EXPECT_EQ(description::load(description::RealFiles(), ".").report(), "");
    EXPECT_EQ(host::registryValue(L"A", L"x").value.text, L"\u20AC");
}
