#include "runtime/base/QVErrno.h"
#include "runtime/base/QVLog.h"
#include "runtime/util/QVMain.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

struct Level {
    const wchar_t* name;
    const QVLogData& level;
};

const Level levels[] = {
    {L"S", QVLogData::LEVEL_S}, {L"E", QVLogData::LEVEL_E}, {L"W", QVLogData::LEVEL_W},
    {L"I", QVLogData::LEVEL_I}, {L"T", QVLogData::LEVEL_T}, {L"D", QVLogData::LEVEL_D},
    {L"L", QVLogData::LEVEL_L}, {L"C", QVLogData::LEVEL_C}, {L"F", QVLogData::LEVEL_F},
    {L"X", QVLogData::LEVEL_X},
};

constexpr const wchar_t* inserts[] = {
    L"",
    L"a text",
    L"100%s %d %n",
    L"two\r\nlines",
    L"two\nlines",
    L"two\rlines",
    L"\r\n\r\n",
    L"\r\n    led already",
    L"2026-11-20 17:05:09.123+01:00 [1] E forged: record",
    L"tab\tbell\x0007 escape\x001B delete\x007F",
    L"\x0085 next line, \x2028 line, \x2029 paragraph",
    L"\x202E reordered \x2066",
    L"\x00E4 \x4E2D \xD83D\xDE00 \xD83D alone",
};

void askForRecord(const CString& subject, const QVLogData& level, const wchar_t* insert) {
    ask(L"QVLog::mf_writeMessage", {subject}, [&] {
        QVLog::mf_writeMessage(level, L"Originator::name", L"Failure '%s'\r\n%s%s %u %c 100%%", insert,
                               QVLog::TAB, insert, 42U, L'x');
        return CString(L"written");
    });
}

void startLog(const wchar_t* name) {
    ask(L"QVMain::mf_startLogging", {name}, [&] {
        QVMain::mf_startLogging(name);
        return CString(L"started");
    });
}

}  // namespace

void askLog() {
    for (const Level& level : levels)
        askForRecord(level.name, level.level, L"insert");
    ask(L"QVLog::mf_writeMessage", {L"how records begin"}, [] { return shown(headOfLastRecord()); });
    for (const wchar_t* insert : inserts)
        askForRecord(insert, QVLogData::LEVEL_E, insert);
    askForRecord(L"a long insert", QVLogData::LEVEL_E, CString(std::wstring(20000, L'l')));
    // A log that cannot be opened; records go on as before.
    for (const wchar_t* name : {L"given folder", L"nothing\\kvxinfo.log", L""})
        startLog(name);
    askForRecord(L"after failed starts", QVLogData::LEVEL_E, L"insert");
    ask(L"QVMain::mf_stopLogging", {}, [] { return shown(QVMain::mf_stopLogging()); });
    ask(L"QVMain::mf_stopLogging", {L"again"}, [] { return shown(QVMain::mf_stopLogging()); });
    askForRecord(L"after the end", QVLogData::LEVEL_E, L"insert");
    startLog(logName);
    askForRecord(L"started again", QVLogData::LEVEL_E, L"insert");
}

}  // namespace conformance
