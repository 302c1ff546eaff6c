#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "runtime/host/described/native_errors.h"
#include "runtime/host/described/native_files.h"
#include "runtime/host/description/windows_path.h"
#include "runtime/host/host.h"

namespace host {

namespace {

class NativeFile : public AppendedFile {
public:
    explicit NativeFile(described::Descriptor file) : m_file(std::move(file)) {}

    bool append(std::string_view bytes) noexcept override {
        return described::writeAll(m_file.number(), bytes);
    }

private:
    described::Descriptor m_file;
};

void rotate(const std::string& name, std::uint64_t rotateAbove, const std::string& rotatedName) {
    struct stat status {};
    if (stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
    if (static_cast<std::uint64_t>(status.st_size) > rotateAbove)
        std::rename(name.c_str(), rotatedName.c_str());
}

/// Whether the last line has no end. Of what is no file, or may not be read, that is not known.
bool endsWithinALine(const std::string& name) {
    struct stat status {};
    if (stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0) return false;
    const described::Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    char last = '\n';
    return file.number() >= 0 && pread(file.number(), &last, 1, status.st_size - 1) == 1 && last != '\n';
}

}  // namespace

Answer<std::unique_ptr<AppendedFile>> openForAppending(const std::wstring& name, std::uint64_t rotateAbove,
                                                       const std::wstring& rotatedName) {
    using Result = Answer<std::unique_ptr<AppendedFile>>;
    if (description::isDescribedPath(name))
        return description::answerOf<std::unique_ptr<AppendedFile>>(described::nativeCause(EACCES));
    const std::string nativeName = described::nativeName(name);
    rotate(nativeName, rotateAbove, described::nativeName(rotatedName));
    const bool unfinished = endsWithinALine(nativeName);
    const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
    described::Descriptor descriptor(open(nativeName.c_str(), flags, 0666));
    if (descriptor.number() < 0) {
        const int error = errno == ENOENT ? ENOTDIR : errno;  // what can be missing is the directory
        return description::answerOf<std::unique_ptr<AppendedFile>>(described::nativeCause(error));
    }
    auto file = std::make_unique<NativeFile>(std::move(descriptor));
    if (unfinished) file->append("\r\n");
    return Result(std::move(file));
}

}  // namespace host
