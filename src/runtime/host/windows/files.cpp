#include "runtime/host/host.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/handle.h"
#include "runtime/host/windows/paths.h"

namespace host {

namespace {

/// What the attributes of a path say, or why they cannot be had.
struct Attributes {
    DWORD code = ERROR_SUCCESS;
    DWORD value = 0;
};

/// The attributes as the directory above lists them: it may list what cannot be opened.
Attributes listedAttributes(const std::wstring& path, DWORD otherwise) {
    const std::size_t name = path.find_last_of(L"\\/");
    if (path.find_first_of(L"*?", name == std::wstring::npos ? 0 : name) != std::wstring::npos)
        return {otherwise};
    WIN32_FIND_DATAW entry{};
    const windows::FindFileHandle found(FindFirstFileW(path.c_str(), &entry));
    return found ? Attributes{ERROR_SUCCESS, entry.dwFileAttributes} : Attributes{otherwise};
}

Attributes attributesOf(const std::wstring& path) {
    const DWORD value = GetFileAttributesW(path.c_str());
    if (value != INVALID_FILE_ATTRIBUTES) return {ERROR_SUCCESS, value};
    const DWORD code = GetLastError();
    const bool closedToUs = code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION;
    return closedToUs ? listedAttributes(path, code) : Attributes{code};
}

/// The path without separators at its end; empty where they belong to it, as to a drive's root.
std::wstring withoutSeparatorAtEnd(const std::wstring& path) {
    const std::size_t last = path.find_last_not_of(L"\\/");
    const bool isRoot = last == std::wstring::npos || path[last] == L':';
    return isRoot || last + 1 == path.size() ? std::wstring() : path.substr(0, last + 1);
}

Answer<FileKind> kindFrom(const Attributes& attributes) {
    if (attributes.code == ERROR_SUCCESS) {
        const bool directory = (attributes.value & FILE_ATTRIBUTE_DIRECTORY) != 0;
        return directory ? FileKind::directory : FileKind::file;
    }
    // Nothing can have such a name, or stand below a file.
    if (attributes.code == ERROR_INVALID_NAME || attributes.code == ERROR_DIRECTORY) return {};
    return windows::missingOrUnanswered<FileKind>(attributes.code);
}

/// Reads to the end of the file, or one byte more than `maximumBytes`.
DWORD readAll(HANDLE file, std::uint64_t maximumBytes, std::string& bytes) {
    constexpr std::size_t atOnce = 65536;
    for (;;) {
        const std::size_t used = bytes.size();
        bytes.resize(used + atOnce);
        DWORD count = 0;
        const bool read =
            ReadFile(file, bytes.data() + used, static_cast<DWORD>(atOnce), &count, nullptr) != 0;
        const DWORD code = read ? ERROR_SUCCESS : GetLastError();
        bytes.resize(used + count);
        if (!read) return code;
        if (count == 0 || bytes.size() > maximumBytes) return ERROR_SUCCESS;
    }
}

}  // namespace

Answer<FileKind> fileKind(const std::wstring& path) {
    const std::wstring asked = windows::withoutLimit(path);
    const Attributes attributes = attributesOf(asked);
    if (attributes.code != ERROR_SUCCESS) {
        const std::wstring shorter = withoutSeparatorAtEnd(asked);
        if (!shorter.empty()) return kindFrom(attributesOf(shorter));
    }
    return kindFrom(attributes);
}

Answer<std::wstring> absolutePath(const std::wstring& path) {
    const windows::FilledText full = windows::fullPath(path);
    return full.code == ERROR_SUCCESS ? full.text : windows::unanswered<std::wstring>(full.code);
}

Answer<std::string> fileContents(const std::wstring& path, std::uint64_t maximumBytes) {
    const std::wstring asked = windows::withoutLimit(path);
    const windows::FileHandle file(CreateFileW(asked.c_str(), GENERIC_READ,
                                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                               nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) {
        const DWORD code = GetLastError();
        const DWORD attributes = GetFileAttributesW(asked.c_str());
        const bool directory =
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (directory) return Answer<std::string>::failed(0, L"it is a directory");
        return windows::missingOrUnanswered<std::string>(code);
    }
    std::string bytes;
    const DWORD code = readAll(file.get(), maximumBytes, bytes);
    if (code != ERROR_SUCCESS) return windows::unanswered<std::string>(code);
    if (bytes.size() > maximumBytes) {
        return Answer<std::string>::failed(0,
                                           L"it is larger than " + std::to_wstring(maximumBytes) + L" bytes");
    }
    return bytes;
}

}  // namespace host
