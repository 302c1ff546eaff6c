#include "runtime/base/QVSystem.h"
#include "runtime/base/QVThreadContext.h"
#include "runtime/base/QVVersion.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

void askForVersionTexts() {
    for (const unsigned long number :
         {0UL, 1UL, 0x06010502UL, 0x01020304UL, 0x00FF00FFUL, 0x80000000UL, 0xFFFFFFFFUL}) {
        ask(L"QVVersion::mf_VersionNumberToVersionString", {number},
            [&] { return shown(QVVersion::mf_VersionNumberToVersionString(number)); });
    }
    for (const host::DottedVersion& version :
         {host::DottedVersion{6, 1, 5, 2}, host::DottedVersion{0, 0, 0, 0},
          host::DottedVersion{255, 255, 255, 255}, host::DottedVersion{256, 0, 0, 0},
          host::DottedVersion{0, 0, 0, 4294967295U}}) {
        ask(L"QVVersion::pack", {CString(host::versionText(version))},
            [&] { return shown(QVVersion::pack(version)); });
    }
}

}  // namespace

void askSystem() {
    askLines(L"QVSystem::mf_toString", L"    ", [] { return QVSystem::mf_toString(L"    "); });
    askLines(L"QVSystem::mf_toString", L"", [] { return QVSystem::mf_toString(L""); });
    ask(L"QVSystem::mf_getSystemVersionString", {},
        [] { return shown(QVSystem::mf_getSystemVersionString()); });
    for (const int servicePack : {0, 1, 65535}) {
        ask(L"QVSystem::mf_isAtLeastW2003", {servicePack},
            [&] { return shown(QVSystem::mf_isAtLeastW2003(static_cast<unsigned short>(servicePack))); });
    }
    ask(L"QVSystem::mf_is32Bit", {}, [] { return shown(QVSystem::mf_is32Bit()); });
    ask(L"QVSystem::mf_getDefaultAnsiCodepage", {},
        [] { return shown(QVSystem::mf_getDefaultAnsiCodepage()); });
    askForVersionTexts();
    ask(L"QVThreadContext::mf_setLoggingLanguage", {}, [] {
        QVThreadContext::mf_setLoggingLanguage();
        const bool english = QVThreadContext::mf_getLanguage() == QVThreadContext::Language::english;
        return CString(english ? L"English" : L"another language");
    });
}

}  // namespace conformance
