#include "runtime/base/QVPath.h"
#include "tests/conformance/questions.h"
#include "tests/conformance/transcript.h"

namespace conformance {

namespace {

/// The machine has C:\conformance with "file.txt", "folder" with "inside.txt" in it, and names of all kinds;
/// in the current directory are "given.txt" and "given folder".
constexpr const wchar_t* paths[] = {
    L"C:\\conformance\\file.txt",
    L"c:\\CONFORMANCE\\File.TXT",
    L"C:/conformance/file.txt",
    L"C:\\conformance\\file.txt\\",
    L"C:\\conformance\\file.txt/",
    L"C:\\conformance\\file.txt\\below",
    L"C:\\conformance\\file.txt\\below\\further",
    L"C:\\conformance",
    L"C:\\conformance\\",
    L"C:\\conformance\\\\",
    L"C:\\\\conformance\\\\file.txt",
    L"C:\\conformance\\folder",
    L"C:\\conformance\\folder\\",
    L"C:\\conformance\\folder/",
    L"C:\\conformance\\folder\\.",
    L"C:\\conformance\\folder\\..",
    L"C:\\conformance\\folder\\..\\file.txt",
    L"C:\\conformance\\nothing\\..\\file.txt",
    L"C:\\conformance\\.\\file.txt",
    L"C:\\..\\..\\conformance\\file.txt",
    L"C:\\conformance\\folder\\inside.txt",
    L"C:\\conformance\\nothing",
    L"C:\\conformance\\nothing\\",
    L"C:\\conformance\\nothing\\nothing",
    L"C:\\conformance\\file",
    L"C:\\conformance\\file.tx",
    L"C:\\conformance\\file.txt.",
    L"C:\\conformance\\file.txt...",
    L"C:\\conformance\\file.txt ",
    L"C:\\conformance\\ file.txt",
    L"C:\\conformance\\folder.\\inside.txt",
    L"C:\\conformance\\folder \\inside.txt",
    L"C:\\conformance\\*.txt",
    L"C:\\conformance\\file.???",
    L"C:\\conformance\\fi|le.txt",
    L"C:\\conformance\\fi<le>.txt",
    L"C:\\conformance\\fi\"le.txt",
    L"C:\\conformance\\file.txt:stream",
    L"C:\\conformance\\fi\x0001le.txt",
    L"C:\\conformance\\with blanks and (brackets), & so on; it's 100%.txt",
    L"C:\\conformance\\\x00E4\x00F6\x00FC \x00DF.txt",
    L"C:\\conformance\\\x00C4\x00D6\x00DC \x00DF.txt",
    L"C:\\conformance\\\x4E2D\x6587.txt",
    L"C:\\conformance\\\xD83D\xDE00.txt",
    L"C:\\conformance\\.hidden",
    L"C:\\conformance\\many.dots.in.name",
    L"C:\\conformance\\NUL",
    L"C:\\conformance\\aux.txt",
    L"NUL",
    L"nul",
    L"CON",
    L"C:\\",
    L"C:/",
    L"C:",
    L"C:\\.",
    L"C:\\..",
    L"c:",
    L"C:conformance",
    L"C:file.txt",
    L"Q:\\",
    L"Q:",
    L"Q:\\file.txt",
    L"Q:file.txt",
    L"Q:\\folder\\file.txt",
    L"\\",
    L"/",
    L"\\conformance\\file.txt",
    L"\\\\",
    L"\\\\server",
    L"\\\\server\\share",
    L"\\\\server\\share\\",
    L"\\\\server\\share\\folder\\..\\..\\file.txt",
    L"//server/share/file.txt",
    L"\\\\?\\C:\\conformance\\file.txt",
    L"\\\\?\\C:\\conformance\\folder",
    L"\\\\?\\C:\\conformance\\nothing",
    L"\\\\?\\C:\\conformance\\folder\\..\\file.txt",
    L"\\\\?\\C:/conformance/file.txt",
    L"\\\\?\\C:\\",
    L"\\\\?\\Q:\\",
    L"\\\\?\\UNC\\server\\share",
    L"\\\\.\\C:\\conformance\\file.txt",
    L"\\\\.\\C:",
    L"given.txt",
    L".\\given.txt",
    L"./given.txt",
    L"GIVEN.txt",
    L"given.txt\\",
    L"given.txt.",
    L"given.txt ",
    L"given.txt\\below",
    L"given folder",
    L"given folder\\",
    L"given folder\\..\\given.txt",
    L"nothing.txt",
    L"nothing\\nothing.txt",
    L"*",
    L"*.txt",
    L"gi?en.txt",
    L".",
    L"..",
    L".\\",
    L"..\\",
    L"...",
    L"",
    L" ",
    L"  given.txt",
    L"file name with a : in it",
};

struct Pair {
    const wchar_t* directory;
    const wchar_t* name;
};

constexpr Pair pairs[] = {
    {L"C:\\folder", L"file.txt"},
    {L"C:\\folder\\", L"file.txt"},
    {L"C:\\folder\\\\", L"file.txt"},
    {L"C:\\folder/", L"file.txt"},
    {L"C:\\folder", L"\\file.txt"},
    {L"C:\\folder\\", L"\\file.txt"},
    {L"C:\\folder\\", L"/file.txt"},
    {L"C:\\folder", L"below\\file.txt"},
    {L"C:\\folder", L"below\\"},
    {L"C:\\", L"file.txt"},
    {L"C:", L"file.txt"},
    {L"\\", L"file.txt"},
    {L"\\\\", L"server"},
    {L"\\\\server\\share", L"file.txt"},
    {L"", L"file.txt"},
    {L"", L"\\file.txt"},
    {L"", L""},
    {L"C:\\folder", L""},
    {L"C:\\folder\\", L""},
    {L".", L"file.txt"},
    {L"C:\\folder", L"C:\\other\\file.txt"},
    {L"C:\\\x00E4", L"\x4E2D.txt"},
    {L"C:\\folder ", L" file.txt"},
    {L"C:\\100%s", L"%d"},
};

void askAbout(const CString& path) {
    ask(L"QVPath::mf_exists", {path}, [&] { return shown(QVPath::mf_exists(path)); });
    ask(L"QVPath::mf_getAbsolutePath", {path}, [&] { return shown(QVPath::mf_getAbsolutePath(path)); });
    ask(L"QVPath::mf_isAbsolutePathName", {path}, [&] { return shown(QVPath::mf_isAbsolutePathName(path)); });
}

/// The path of the file that stands deep down, and of those beside it.
CString longPath(const wchar_t* name) {
    const CString part = L"a folder with a name of sixty characters, as far as one counts";
    CString path = L"C:\\conformance";
    for (int depth = 0; depth < 5; ++depth)
        path += L"\\" + part;
    return path + L"\\" + name;
}

}  // namespace

void askPaths() {
    for (const wchar_t* path : paths)
        askAbout(path);
    for (const wchar_t* name : {L"deep.txt", L"nothing.txt", L"..\\nothing.txt", L"deep.txt\\", L""})
        askAbout(longPath(name));
    askAbout(L"C:\\conformance\\" + CString(std::wstring(256, L'n')));
    askAbout(L"C:\\conformance\\" + CString(std::wstring(40000, L'n')));
    askAbout(CString(std::wstring(300, L'r')));
    for (const Pair& pair : pairs) {
        ask(L"QVPath::mf_appendFile", {pair.directory, pair.name},
            [&] { return shown(QVPath::mf_appendFile(pair.directory, pair.name)); });
        ask(L"QVPath::mf_appendDirectory", {pair.directory, pair.name},
            [&] { return shown(QVPath::mf_appendDirectory(pair.directory, pair.name)); });
    }
}

}  // namespace conformance
