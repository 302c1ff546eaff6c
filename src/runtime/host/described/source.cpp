#include "runtime/host/described/source.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "runtime/host/described/embedded.h"
#include "runtime/host/utf.h"

namespace described {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::optional<std::string> readEmbedded(std::string_view name, std::string& why) {
    for (const embedded::File* file = embedded::sampleMachine; file->name != nullptr; ++file) {
        if (name == file->name) return std::string(reinterpret_cast<const char*>(file->bytes), file->size);
    }
    why = "the sample has no such file";
    return std::nullopt;
}

std::optional<std::string> readReal(const std::string& name, std::string& why) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(name.c_str(), "rbe"));
    std::string bytes;
    char block[16384];
    bool good = file != nullptr;
    while (good) {
        const std::size_t count = std::fread(block, 1, sizeof block, file.get());
        bytes.append(block, count);
        if (count < sizeof block) {
            if (std::ferror(file.get()) == 0) return bytes;
            good = false;
        }
    }
    why = std::strerror(errno);
    return std::nullopt;
}

/// The units of UTF-16 bytes without their mark. A single byte at the end is no unit.
std::wstring unitsOf(std::string_view bytes, bool littleEndian) {
    std::wstring units;
    units.reserve(bytes.size() / 2);
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        const int unit = littleEndian ? first | second << 8 : second | first << 8;
        units += unit == 0 ? L'\xFFFD' : static_cast<wchar_t>(unit);
    }
    return units;
}

std::wstring decoded(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return unitsOf(bytes, true);
    if (bytes.starts_with("\xFE\xFF")) return unitsOf(bytes, false);
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return host::fromUtf8(bytes);
}

}  // namespace

std::optional<std::string> RealFiles::read(const std::string& name, std::string& why) const {
    if (name.starts_with(samplePrefix))
        return readEmbedded(std::string_view(name).substr(samplePrefix.size()), why);
    return readReal(name, why);
}

bool RealFiles::isFolder(const std::string& name) const {
    struct stat status {};
    return stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::optional<std::string> MemoryFiles::read(const std::string& name, std::string& why) const {
    if (name.starts_with(samplePrefix))
        return readEmbedded(std::string_view(name).substr(samplePrefix.size()), why);
    if (name == m_name) return m_bytes;
    why = "no such file";
    return std::nullopt;
}

std::string besideFile(const std::string& from, const std::string& name) {
    if (name.starts_with('/')) return name;
    const std::size_t slash = from.rfind('/');
    if (slash != std::string::npos) return from.substr(0, slash + 1) + name;
    return from.starts_with(samplePrefix) ? std::string(samplePrefix) + name : name;
}

std::vector<std::wstring> linesOf(std::string_view bytes) {
    const std::wstring text = decoded(bytes);
    std::vector<std::wstring> lines;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.find_first_of(L"\r\n", at);
        if (end == std::wstring::npos) end = text.size();
        lines.push_back(text.substr(at, end - at));
        at = end + (text.compare(end, 2, L"\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

}  // namespace described
