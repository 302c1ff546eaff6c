#include <cstdlib>
#include <vector>

#include "runtime/host/os.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

constexpr DWORD noCode = 4711;

/// The last error, where the call set one.
CString lastError() {
    const DWORD code = GetLastError();
    return code == noCode ? CString() : formatted(L", last error %u", static_cast<unsigned long>(code));
}

void askForWindowsDirectory(UINT size) {
    ask(L"GetWindowsDirectoryW", {static_cast<unsigned long>(size)}, [&] {
        std::vector<wchar_t> buffer(size + 1, L'\0');
        SetLastError(noCode);
        const UINT result = GetWindowsDirectoryW(size != 0 ? buffer.data() : nullptr, size);
        const CString text = result < size ? shown(CString(buffer.data())) : CString(L"no text");
        return formatted(L"%u ", static_cast<unsigned long>(result)) + text;
    });
}

/// Without the last error, which Windows leaves as it pleases where the call succeeds.
void askForUserName(DWORD room) {
    ask(L"GetUserNameW", {static_cast<unsigned long>(room)}, [&] {
        std::vector<wchar_t> buffer(room + 1, L'\0');
        DWORD size = room;
        SetLastError(noCode);
        const BOOL done = GetUserNameW(buffer.data(), &size);
        const CString result = done != 0 ? shown(CString(buffer.data())) : L"failed" + lastError();
        return result + formatted(L", size %u", static_cast<unsigned long>(size));
    });
}

void askToDelete(const wchar_t* path) {
    ask(L"DeleteFileW", {path}, [&] {
        SetLastError(noCode);
        return DeleteFileW(path) != 0 ? CString(L"deleted") : L"failed" + lastError();
    });
}

struct Identifier {
    const wchar_t* name;
    BYTE authority;
    BYTE count;
    DWORD first, second;
};

constexpr Identifier identifiers[] = {
    {L"administrators", 5, 2, 32, 544},
    {L"nobody", 5, 2, 32, 9999},
    {L"too many parts", 5, 9, 32, 544},
};

void askForMembership(const Identifier& identifier) {
    SID_IDENTIFIER_AUTHORITY authority = {{0, 0, 0, 0, 0, identifier.authority}};
    PSID sid = nullptr;
    ask(L"AllocateAndInitializeSid", {identifier.name}, [&] {
        SetLastError(noCode);
        const BOOL done = AllocateAndInitializeSid(&authority, identifier.count, identifier.first,
                                                   identifier.second, 0, 0, 0, 0, 0, 0, &sid);
        return done != 0 ? CString(L"made") : L"failed" + lastError();
    });
    if (sid == nullptr) return;
    ask(L"CheckTokenMembership", {identifier.name}, [&] {
        BOOL isMember = 0;
        SetLastError(noCode);
        const BOOL done = CheckTokenMembership(nullptr, sid, &isMember);
        return done != 0 ? formatted(L"%d", isMember != 0 ? 1 : 0) : L"failed" + lastError();
    });
    FreeSid(sid);
}

struct Stream {
    const wchar_t* path;
    const wchar_t* mode;
};

constexpr Stream streams[] = {
    {L"written.txt", L"w"},       {L"written.txt", L"r"},     {L"written.txt", L"a"},
    {L"nothing.txt", L"r"},       {L"given folder", L"w"},    {L"given folder\\written.txt", L"w"},
    {L"nothing\\file.txt", L"w"}, {L"C:\\conformance", L"w"},
};

void askForStream(const Stream& stream) {
    ask(L"_wfopen_s", {stream.path, stream.mode}, [&] {
        std::FILE* file = nullptr;
        const int error = _wfopen_s(&file, stream.path, stream.mode);
        if (file == nullptr) return formatted(L"error %d", error);
        std::fclose(file);
        return formatted(L"opened, %d", error);
    });
}

CString bytesOf(const wchar_t* path) {
    std::FILE* file = nullptr;
    if (_wfopen_s(&file, path, L"rb") != 0) return L"no file";
    CString text;
    for (int byte; (byte = std::fgetc(file)) != EOF;)
        text += formatted(L"%2.2x", static_cast<unsigned int>(byte));
    std::fclose(file);
    return text;
}

void askForText(const wchar_t* text) {
    ask(L"fwprintf_s", {text}, [&] {
        std::FILE* file = nullptr;
        if (_wfopen_s(&file, L"text.txt", L"w") != 0) return CString(L"not opened");
        const int written = fwprintf_s(file, L"%s", text);
        std::fclose(file);
        return CString(written < 0 ? L"negative" : L"not negative") + L", bytes " + bytesOf(L"text.txt");
    });
}

}  // namespace

void askCalls() {
    for (const UINT size : {0U, 1U, 10U, 11U, 300U})
        askForWindowsDirectory(size);
    for (const DWORD room : {1U, 3U, 257U})
        askForUserName(room);
    for (const Identifier& identifier : identifiers)
        askForMembership(identifier);
    for (const Stream& stream : streams)
        askForStream(stream);
    for (const wchar_t* text :
         {L"plain", L"line\nline\r\nend\n", L"\x00E4\x00FF", L"before \x4E2D behind", L"100%s", L""})
        askForText(text);
    for (const wchar_t* path : {L"written.txt", L"written.txt", L"nothing\\file.txt", L"given folder",
                                L"given folder\\written.txt", L"", L"C:\\conformance\\nothing.txt"})
        askToDelete(path);
}

}  // namespace conformance
