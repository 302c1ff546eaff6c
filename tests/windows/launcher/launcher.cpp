/// launcher.exe PROGRAM ARG...: runs a program as the same user without the rights of an administrator, with
/// the same standard streams, and ends with its exit status.

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr int failed = 99;

int failure(const char* call) {
    std::fprintf(stderr, "launcher: %s: error %lu\n", call, GetLastError());
    return failed;
}

/// One argument, quoted so that the program's start-up code reads the same text again.
std::wstring quoted(std::wstring_view argument) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t sign : argument) {
        if (sign == L'"') text.append(backslashes + 1, L'\\');
        backslashes = sign == L'\\' ? backslashes + 1 : 0;
        text += sign;
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

/// This process's token, with the administrators group fit for nothing but to be refused something.
HANDLE restrictedToken() {
    HANDLE own = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own)) return nullptr;
    BYTE administrators[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof administrators;
    HANDLE restricted = nullptr;
    SID_AND_ATTRIBUTES disabled{administrators, 0};
    if (CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size)) {
        CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 1, &disabled, 0, nullptr, 0, nullptr, &restricted);
    }
    CloseHandle(own);
    return restricted;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return failed;
    const HANDLE token = restrictedToken();
    if (token == nullptr) return failure("CreateRestrictedToken");
    std::wstring command;
    for (int index = 1; index < count; ++index)
        command += (index > 1 ? L" " : L"") + quoted(arguments[index]);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    for (const HANDLE stream : {startup.hStdInput, startup.hStdOutput, startup.hStdError})
        SetHandleInformation(stream, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    PROCESS_INFORMATION process{};
    if (!CreateProcessAsUserW(token, nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                              &startup, &process)) {
        return failure("CreateProcessAsUserW");
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = failed;
    GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}
