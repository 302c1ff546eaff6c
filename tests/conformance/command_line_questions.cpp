#include "runtime/util/QVCmdline.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

CString held(const QVCmdline& cmdline) {
    CString text = formatted(L"%d:", cmdline.mf_getSize());
    QVCmdline copy = cmdline;
    CString argument;
    for (int i = 0; copy.mf_getArgument(i, argument, 0) != 0; ++i)
        text += L" " + shown(argument);
    return text;
}

}  // namespace

void askCommandLine() {
    wchar_t program[] = L"program", save[] = L"save", upper[] = L"SAVE", empty[] = L"",
            strange[] = L"\x00E4 %s";
    wchar_t* const arguments[] = {program, save, upper, empty, strange, save, nullptr};
    QVCmdline cmdline(6, arguments);
    ask(L"QVCmdline::QVCmdline", {6}, [&] { return held(cmdline); });
    for (const int count : {0, 1, 2})
        ask(L"QVCmdline::QVCmdline", {count}, [&] { return held(QVCmdline(count, arguments)); });
    ask(L"QVCmdline::mf_getSize", {}, [&] { return shown(cmdline.mf_getSize()); });
    for (const wchar_t* name : {L"save", L"Save", L"SAVE", L"", L"nothing", L"sav", L"save "}) {
        for (const int remove : {0, 1}) {
            ask(L"QVCmdline::mf_getArgument", {name, remove}, [&] {
                const int found = cmdline.mf_getArgument(name, remove);
                return formatted(L"%d, left ", found) + held(cmdline);
            });
        }
    }
    for (const int index : {-1, 0, 1, 5}) {
        ask(L"QVCmdline::mf_getArgument", {index, 1}, [&] {
            CString argument = L"unchanged";
            const int found = cmdline.mf_getArgument(index, argument, 1);
            return formatted(L"%d ", found) + shown(argument) + L", left " + held(cmdline);
        });
    }
}

}  // namespace conformance
