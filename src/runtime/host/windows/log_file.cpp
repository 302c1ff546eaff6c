#include <algorithm>

#include "runtime/host/host.h"
#include "runtime/host/windows/errors.h"
#include "runtime/host/windows/handle.h"

namespace host {

namespace {

class LogFile final : public AppendedFile {
public:
    explicit LogFile(windows::FileHandle file) noexcept : m_file(std::move(file)) {}

    bool append(std::string_view bytes) noexcept override {
        constexpr std::size_t atOnce = std::size_t{1} << 20;
        while (!bytes.empty()) {
            DWORD written = 0;
            const auto count = static_cast<DWORD>(std::min(bytes.size(), atOnce));
            if (!WriteFile(m_file.get(), bytes.data(), count, &written, nullptr) || written == 0)
                return false;
            bytes.remove_prefix(written);
        }
        return true;
    }

private:
    windows::FileHandle m_file;
};

bool isLargerThan(const std::wstring& name, std::uint64_t size) {
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (!GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &found)) return false;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
    return ((std::uint64_t{found.nFileSizeHigh} << 32) | found.nFileSizeLow) > size;
}

/// Whether the last line has no end. Of a file that may not be read that is not known.
bool endsWithinALine(const std::wstring& name) {
    constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const windows::FileHandle file(CreateFileW(name.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                               FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER lastByte{};
    lastByte.QuadPart = -1;
    // In an empty file there is no such place.
    if (!file || !SetFilePointerEx(file.get(), lastByte, nullptr, FILE_END)) return false;
    char last = '\n';
    DWORD size = 0;
    return ReadFile(file.get(), &last, 1, &size, nullptr) && size == 1 && last != '\n';
}

}  // namespace

Answer<std::unique_ptr<AppendedFile>> openForAppending(const std::wstring& name, std::uint64_t rotateAbove,
                                                       const std::wstring& rotatedName) {
    if (isLargerThan(name, rotateAbove)) {
        // Another run that has the log open does not stop this, because every run shares the right to delete
        // it: what that run has yet to write goes to the renamed file. A program that reads the log without
        // sharing that right does stop it; the log then grows on.
        MoveFileExW(name.c_str(), rotatedName.c_str(), MOVEFILE_REPLACE_EXISTING);
    }
    const bool unfinished = endsWithinALine(name);
    // With the right to append only, runs that write at the same time do not overwrite each other.
    windows::FileHandle file(CreateFileW(name.c_str(), FILE_APPEND_DATA,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                         OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return windows::unanswered<std::unique_ptr<AppendedFile>>(GetLastError());
    auto log = std::make_unique<LogFile>(std::move(file));
    if (unfinished) log->append("\r\n");
    return Answer<std::unique_ptr<AppendedFile>>(std::move(log));
}

}  // namespace host
