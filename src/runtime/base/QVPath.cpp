#include "runtime/base/QVPath.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"

namespace {

bool isSeparator(wchar_t unit) {
    return unit == L'\\' || unit == L'/';
}

bool isLetter(wchar_t unit) {
    return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
}

CString joined(const CString& directory, const CString& name) {
    std::wstring path = directory.units();
    if (path.empty()) return name;
    // What begins with two separators is a share, and they are not surplus.
    while (path.size() > 2 && isSeparator(path.back()))
        path.pop_back();
    if (!isSeparator(path.back())) path += L'\\';
    std::size_t begin = 0;
    while (begin < name.units().size() && isSeparator(name.units()[begin]))
        ++begin;
    return CString(path + name.units().substr(begin));
}

}  // namespace

int QVPath::mf_exists(const CString& path) {
    if (operation::answersZero(L"QVPath::mf_exists", path)) return 0;
    const auto answer = host::fileKind(path.units());
    if (answer.unanswered()) raise(answer.failure, formatted(L"'%s' cannot be checked", path));
    return answer.found() ? 1 : 0;
}

const CString QVPath::mf_getAbsolutePath(const CString& path) {
    if (operation::answersZero(L"QVPath::mf_getAbsolutePath", path)) return {};
    const auto answer = host::absolutePath(path.units());
    if (!answer.found()) raise(answer.failure, formatted(L"'%s' has no full path", path));
    return CString(answer.value);
}

const CString QVPath::mf_appendFile(const CString& directory, const CString& file) {
    if (operation::answersZero(L"QVPath::mf_appendFile", directory, file)) return {};
    return joined(directory, file);
}

const CString QVPath::mf_appendDirectory(const CString& directory, const CString& subdirectory) {
    if (operation::answersZero(L"QVPath::mf_appendDirectory", directory, subdirectory)) return {};
    const CString path = joined(directory, subdirectory);
    const bool ended = !path.IsEmpty() && isSeparator(path.units().back());
    return ended ? path : path + L"\\";
}

int QVPath::mf_isAbsolutePathName(const CString& path) {
    if (operation::answersZero(L"QVPath::mf_isAbsolutePathName", path)) return 0;
    const std::wstring& units = path.units();
    const bool share = units.size() >= 2 && isSeparator(units[0]) && isSeparator(units[1]);
    const bool drive = units.size() >= 3 && isLetter(units[0]) && units[1] == L':' && isSeparator(units[2]);
    return share || drive ? 1 : 0;
}
