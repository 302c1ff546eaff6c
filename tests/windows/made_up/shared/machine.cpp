#include "tests/windows/made_up/shared/machine.h"

#include <algorithm>
#include <cstdio>

#include "runtime/host/description/state.h"
#include "runtime/host/os.h"
#include "runtime/host/utf.h"
#include "tests/windows/made_up/shared/quirks.h"

namespace made_up {

namespace {

constexpr UINT unusable = 64;

/// Reads the description again when it is another one.
void follow() {
    static std::wstring known;
    const std::wstring name = variable(L"KVX_MADE_UP_MACHINE");
    if (name == known) return;
    std::string file = host::toUtf8(name);
    std::replace(file.begin(), file.end(), '\\', '/');
    const description::Mistakes mistakes = description::load(description::RealFiles(), file);
    if (mistakes.any()) endProcess(mistakes.report());
    known = name;
    readQuirks(variable(L"KVX_MADE_UP_QUIRKS"));
}

}  // namespace

const description::Machine& machine() {
    if (variable(L"KVX_MADE_UP_MACHINE").empty()) endProcess("KVX_MADE_UP_MACHINE names no description\n");
    follow();
    return description::machine();
}

const description::Directory& directory() {
    machine();
    return description::directory();
}

std::wstring variable(const wchar_t* name) {
    std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

void endProcess(const std::string& why) {
    std::fputs(("made-up machine: " + why).c_str(), stderr);
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), unusable);
    std::abort();
}

}  // namespace made_up
