#include "runtime/base/QVRegistry.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

const CString base = L"SOFTWARE\\Norvel\\Conformance";

struct ValueQuestion {
    const wchar_t* key;  ///< behind `base`
    const wchar_t* name;
};

constexpr ValueQuestion values[] = {
    {L"", L"Text"},
    {L"", L"TEXT"},
    {L"\\", L"Text"},
    {L"", L"Text "},
    {L"", L"\\Text"},
    {L"", L"Nothing"},
    {L"\\Nothing", L"Text"},
    {L"\\Nothing\\Below", L"Text"},
    {L"", L""},
    {L"\\WithDefault", L""},
    {L"", L"Empty"},
    {L"", L"Path"},
    {L"", L"Quotes"},
    {L"", L"Lines"},
    {L"", L"Accents"},
    {L"", L"\x4E2D\x6587"},
    {L"", L"\x00C4rger"},
    {L"", L"\x00E4RGER"},
    {L"", L"a\\b"},
    {L"", L"a\"b"},
    {L"", L"a=b"},
    {L"", L"a%b"},
    {L"", L"Supplementary"},
    {L"", L"HalfPair"},
    {L"", L"Long"},
    {L"", L"Expanded"},
    {L"", L"ExpandedTwice"},
    {L"", L"ExpandedUnknown"},
    {L"", L"ExpandedPercent"},
    {L"", L"ExpandedEmpty"},
    {L"", L"ExpandedUnterminated"},
    {L"", L"Unterminated"},
    {L"", L"OddSize"},
    {L"", L"OddZero"},
    {L"", L"OneByte"},
    {L"", L"NoBytes"},
    {L"", L"NulInside"},
    {L"", L"NulFirst"},
    {L"", L"SeveralNuls"},
    {L"", L"Number"},
    {L"", L"NumberZero"},
    {L"", L"NumberMost"},
    {L"", L"NumberShort"},
    {L"", L"NumberLong"},
    {L"", L"NumberNoBytes"},
    {L"", L"NumberBigEndian"},
    {L"", L"NumberOf64"},
    {L"", L"Binary"},
    {L"", L"BinaryNoBytes"},
    {L"", L"NoType"},
    {L"", L"LinkType"},
    {L"", L"SeveralTexts"},
    {L"", L"ResourceList"},
    {L"", L"OtherType"},
    {L"\\Refused", L"Text"},
    {L"\\Refused", L"Nothing"},
    {L"\\Refused\\Below", L"Text"},
    {L"\\With blanks and \x00FC", L"Text"},
    {L"\\With/slash", L"Text"},
    {L"/With blanks and \x00FC", L"Text"},
    {L"\\..\\Conformance", L"Text"},
    {L"\\\\WithDefault", L""},
    {L"\\WithDefault ", L""},
};

CString textOf(const CString& name, const CString& key) {
    CString value = L"unchanged";
    try {
        QVRegistry::mf_getValue(name, value, key, HKEY_LOCAL_MACHINE);
    } catch (...) {
        if (!(value == L"unchanged")) return L"it threw, but changed the value";
        throw;
    }
    return shown(value);
}

CString numberOf(const CString& name, const CString& key) {
    unsigned long value = 4711;
    try {
        QVRegistry::mf_getValue(name, value, key, HKEY_LOCAL_MACHINE);
    } catch (...) {
        if (value != 4711) return L"it threw, but changed the value";
        throw;
    }
    return shown(value);
}

void askForValue(const CString& key, const CString& name) {
    ask(L"QVRegistry::mf_exists", {name, key},
        [&] { return shown(QVRegistry::mf_exists(name, key, HKEY_LOCAL_MACHINE)); });
    ask(L"QVRegistry::mf_getValue (text)", {name, key}, [&] { return textOf(name, key); });
    ask(L"QVRegistry::mf_getValue (number)", {name, key}, [&] { return numberOf(name, key); });
}

void askForKey(const CString& key) {
    ask(L"QVRegistry::mf_PathExists", {key},
        [&] { return shown(QVRegistry::mf_PathExists(key, HKEY_LOCAL_MACHINE)); });
}

constexpr const wchar_t* keys[] = {
    L"SOFTWARE",
    L"SOFTWARE\\",
    L"SOFTWARE\\Norvel\\Conformance",
    L"software\\NORVEL\\conFORMANCE",
    L"SOFTWARE\\Norvel\\Conformance\\",
    L"SOFTWARE\\Norvel\\Conformance\\\\",
    L"SOFTWARE\\\\Norvel\\Conformance",
    L"\\SOFTWARE\\Norvel\\Conformance",
    L"SOFTWARE/Norvel/Conformance",
    L"SOFTWARE\\Norvel\\Conformance ",
    L" SOFTWARE\\Norvel\\Conformance",
    L"SOFTWARE\\Norvel\\Conformance\\Nothing",
    L"SOFTWARE\\Norvel\\Nothing\\Nothing",
    L"SOFTWARE\\Norvel\\Conformance\\..",
    L"SOFTWARE\\Norvel\\Conformance\\.",
    L"SOFTWARE\\Norvel\\Conformance\\*",
    L"SOFTWARE\\Norvel\\Conformance\\Text",
    L"SOFTWARE\\Norvel\\Conformance\\NoValues",
    L"SOFTWARE\\Norvel\\Conformance\\With/slash",
    L"SOFTWARE\\Norvel\\Conformance\\With blanks and \x00FC",
    L"SOFTWARE\\Norvel\\Conformance\\WITH BLANKS AND \x00DC",
    L"SOFTWARE\\Norvel\\Conformance\\Refused",
    L"SOFTWARE\\Norvel\\Conformance\\Refused\\Below",
    L"SOFTWARE\\Norvel\\Conformance\\Refused\\Nothing",
    L"HKEY_LOCAL_MACHINE\\SOFTWARE",
    L"NoSuchTopKey",
    L"",
    L"\\",
};

/// A key whose name has `length` characters.
CString keyOfLength(std::size_t length) {
    return base + L"\\" + CString(std::wstring(length, L'k'));
}

void askWithAnotherRoot() {
    // The number of another hive; it is never followed.
    const HKEY other = reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000001U));
    ask(L"QVRegistry::mf_PathExists of another hive", {L"SOFTWARE"},
        [&] { return shown(QVRegistry::mf_PathExists(L"SOFTWARE", other)); });
    ask(L"QVRegistry::mf_exists of another hive", {L"Text", L"SOFTWARE"},
        [&] { return shown(QVRegistry::mf_exists(L"Text", L"SOFTWARE", other)); });
    ask(L"QVRegistry::mf_getValue of another hive", {L"Text", L"SOFTWARE"}, [&] {
        CString value;
        QVRegistry::mf_getValue(L"Text", value, L"SOFTWARE", other);
        return shown(value);
    });
}

}  // namespace

void askRegistry() {
    for (const wchar_t* key : keys)
        askForKey(key);
    for (const std::size_t length : {255U, 256U, 300U, 40000U})
        askForKey(keyOfLength(length));
    for (const ValueQuestion& value : values)
        askForValue(base + value.key, value.name);
    for (const std::size_t length : {255U, 20000U})
        askForValue(base, CString(std::wstring(length, L'v')));
    askWithAnotherRoot();
    for (const wchar_t* subKey : {L"", L"kvxinfo", L"a\\b", L"\\", L"\x00FC"}) {
        ask(L"QVRegistry::mf_getRegistryRoot", {subKey},
            [&] { return shown(QVRegistry::mf_getRegistryRoot(subKey)); });
    }
}

}  // namespace conformance
