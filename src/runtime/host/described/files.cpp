#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/host/described/native_errors.h"
#include "runtime/host/described/native_files.h"
#include "runtime/host/description/file_lookup.h"
#include "runtime/host/description/state.h"
#include "runtime/host/description/windows_path.h"
#include "runtime/host/host.h"

namespace host {

namespace {

using description::answerOf;
using description::LookedUp;
using description::notThere;
using description::untilNul;

/// A name that is too long for this computer is no file's name.
constexpr std::initializer_list<std::uint32_t> codesOfNoFile = {2, 3, 206};
constexpr std::uint32_t invalidName = 123;

bool endsWithSeparator(const std::wstring& path) {
    return path.ends_with(L'\\') || path.ends_with(L'/');
}

/// The relative path without what Windows passes over at its end; empty where nothing is left.
std::wstring withoutEnd(std::wstring path) {
    while (endsWithSeparator(path))
        path.pop_back();
    const std::size_t begin = path.find_last_of(L"\\/") + 1;
    const std::wstring name = path.substr(begin);
    if (name == L"." || name == L"..") return path;
    const std::size_t last = name.find_last_not_of(L". ");
    if (last != std::wstring::npos) return path.substr(0, begin + last + 1);
    return name.find(L'.') != std::wstring::npos ? path.substr(0, begin) + L"." : std::wstring();
}

Answer<FileKind> nativeKind(const std::wstring& path) {
    const std::wstring name = withoutEnd(path);
    if (name.empty()) return Answer<FileKind>::missing();
    struct stat status {};
    if (stat(described::nativeName(name).c_str(), &status) != 0) {
        return answerOf<FileKind>(described::nativeCause(errno), codesOfNoFile);
    }
    return S_ISDIR(status.st_mode) ? FileKind::directory : FileKind::file;
}

Answer<std::string> tooLarge(std::uint64_t maximumBytes) {
    return Answer<std::string>::failed(0, L"it is larger than " + std::to_wstring(maximumBytes) + L" bytes");
}

/// Whether nothing can have that name.
bool isNoName(const std::wstring& path) {
    const std::size_t begin = path.starts_with(L"\\\\?\\") ? 4 : 0;
    return path.find_first_of(L"<>\"|?*", begin) != std::wstring::npos;
}

/// Where a file cannot be opened by this path, why not: a directory, a wrong name, or nothing at all. A file
/// is not opened by a name that ends with a separator.
std::optional<Answer<std::string>> unopened(const Answer<FileKind>& kind, const std::wstring& path) {
    using Contents = Answer<std::string>;
    if (kind.found() && kind.value == FileKind::directory) return Contents::failed(0, L"it is a directory");
    if (isNoName(path) || (kind.found() && endsWithSeparator(path))) return Contents::failed(invalidName);
    if (!kind.found()) return Contents::without(kind);
    return std::nullopt;
}

Answer<std::string> nativeContents(const std::wstring& path, std::uint64_t maximumBytes) {
    const described::Descriptor file(
        open(described::nativeName(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0) return answerOf<std::string>(described::nativeCause(errno), notThere);
    std::string bytes;
    char block[16384];
    for (;;) {
        const ssize_t count = read(file.number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return answerOf<std::string>(described::nativeCause(errno), notThere);
        if (count == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(count));
        if (bytes.size() > maximumBytes) return tooLarge(maximumBytes);
    }
}

}  // namespace

Answer<FileKind> fileKind(const std::wstring& given) {
    const std::wstring path = untilNul(given);
    if (path.empty()) return Answer<FileKind>::missing();
    if (!description::isDescribedPath(path)) return nativeKind(path);
    const LookedUp found = description::lookUp(description::machine(), path);
    if (found.cause.any) return answerOf<FileKind>(found.cause, notThere);
    if (found.entry == nullptr) return Answer<FileKind>::missing();
    return found.entry->directory ? FileKind::directory : FileKind::file;
}

Answer<std::wstring> absolutePath(const std::wstring& given) {
    const std::wstring path = untilNul(given);
    if (path.find_first_not_of(L' ') == std::wstring::npos) return Answer<std::wstring>::failed(invalidName);
    return description::fullPath(path, description::machine().system.currentDirectory);
}

Answer<std::string> fileContents(const std::wstring& given, std::uint64_t maximumBytes) {
    const std::wstring path = untilNul(given);
    if (path.empty()) return Answer<std::string>::missing();
    if (const auto reason = unopened(fileKind(path), path)) return *reason;
    if (!description::isDescribedPath(path)) return nativeContents(withoutEnd(path), maximumBytes);
    const auto& contents = description::machine().files.contents;
    const auto text = contents.find(description::lookUp(description::machine(), path).key);
    if (text == contents.end()) {
        return Answer<std::string>::failed(
            0, L"the description of the machine does not hold the contents of this file");
    }
    if (text->second.cause.any) return answerOf<std::string>(text->second.cause, notThere);
    if (text->second.bytes.size() > maximumBytes) return tooLarge(maximumBytes);
    return text->second.bytes;
}

}  // namespace host
