#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "runtime/host/described/file_lookup.h"
#include "runtime/host/described/native_errors.h"
#include "runtime/host/described/state.h"
#include "runtime/host/described/windows_path.h"
#include "runtime/host/host.h"

namespace host {

namespace {

using described::answerOf;
using described::LookedUp;

constexpr std::initializer_list<std::uint32_t> codesOfMissing = {2, 3};
constexpr std::uint32_t accessDenied = 5;
constexpr std::uint32_t invalidName = 123;

/// Paths end at their first NUL, as they would on their way to the system.
std::wstring untilNul(const std::wstring& path) {
    return path.substr(0, path.find(L'\0'));
}

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return m_number; }

private:
    int m_number;
};

Answer<FileKind> nativeKind(const std::wstring& path) {
    struct stat status {};
    if (stat(described::nativeName(path).c_str(), &status) != 0) {
        return answerOf<FileKind>(described::nativeCause(errno), codesOfMissing);
    }
    return S_ISDIR(status.st_mode) ? FileKind::directory : FileKind::file;
}

Answer<std::string> tooLarge() {
    return Answer<std::string>::failed(0, L"the file is too large");
}

Answer<std::string> nativeContents(const std::wstring& path, std::uint64_t maximumBytes) {
    const Descriptor file(open(described::nativeName(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.number() < 0) return answerOf<std::string>(described::nativeCause(errno), codesOfMissing);
    std::string bytes;
    char block[16384];
    for (;;) {
        const ssize_t count = read(file.number(), block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return answerOf<std::string>(described::nativeCause(errno), codesOfMissing);
        if (count == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(count));
        if (bytes.size() > maximumBytes) return tooLarge();
    }
}

}  // namespace

Answer<FileKind> fileKind(const std::wstring& given) {
    const std::wstring path = untilNul(given);
    if (path.empty()) return Answer<FileKind>::missing();
    if (!described::isDescribedPath(path)) return nativeKind(path);
    const LookedUp found = described::lookUp(described::machine(), path);
    if (found.cause.any) return answerOf<FileKind>(found.cause, codesOfMissing);
    if (found.entry == nullptr) return Answer<FileKind>::missing();
    return found.entry->directory ? FileKind::directory : FileKind::file;
}

Answer<std::wstring> absolutePath(const std::wstring& given) {
    const std::wstring path = untilNul(given);
    if (path.empty()) return Answer<std::wstring>::failed(invalidName);
    return described::fullPath(path, described::machine().system.currentDirectory);
}

Answer<std::string> fileContents(const std::wstring& given, std::uint64_t maximumBytes) {
    const std::wstring path = untilNul(given);
    if (path.empty()) return Answer<std::string>::missing();
    if (!described::isDescribedPath(path)) return nativeContents(path, maximumBytes);
    const LookedUp found = described::lookUp(described::machine(), path);
    if (found.cause.any) return answerOf<std::string>(found.cause, codesOfMissing);
    if (found.entry == nullptr) return Answer<std::string>::missing();
    if (found.entry->directory) return Answer<std::string>::refused(accessDenied);
    const auto& contents = described::machine().files.contents;
    const auto text = contents.find(found.key);
    if (text == contents.end()) {
        return Answer<std::string>::failed(
            0, L"the description of the machine does not hold the contents of this file");
    }
    if (text->second.cause.any) return answerOf<std::string>(text->second.cause, codesOfMissing);
    if (text->second.bytes.size() > maximumBytes) return tooLarge();
    return text->second.bytes;
}

Answer<FileVersion> fileVersion(const std::wstring& given) {
    const std::wstring path = untilNul(given);
    if (!described::isDescribedPath(path)) return Answer<FileVersion>::missing();
    const LookedUp found = described::lookUp(described::machine(), path);
    if (found.cause.any) return answerOf<FileVersion>(found.cause, codesOfMissing);
    const auto& versions = described::machine().files.versions;
    const auto image = versions.find(found.key);
    if (found.entry == nullptr || image == versions.end()) return Answer<FileVersion>::missing();
    return image->second.cause.any ? answerOf<FileVersion>(image->second.cause, codesOfMissing)
                                   : image->second.version;
}

}  // namespace host
