#include "runtime/host/description/source.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "runtime/host/description/embedded.h"
#include "runtime/host/utf.h"

namespace description {

namespace {

std::optional<std::string> readEmbedded(std::string_view name, std::string& why) {
    for (const embedded::File* file = embedded::sampleMachine; file->name != nullptr; ++file) {
        if (name == file->name) return std::string(reinterpret_cast<const char*>(file->bytes), file->size);
    }
    why = "the sample has no such file";
    return std::nullopt;
}

/// Names of files are UTF-8 on every system.
std::filesystem::path pathOf(const std::string& name) {
    return {std::u8string(name.begin(), name.end())};
}

std::optional<std::string> readReal(const std::string& name, std::string& why) {
    errno = 0;
    std::ifstream file(pathOf(name), std::ios::binary);
    std::string bytes;
    char block[16384];
    while (file.read(block, sizeof block) || file.gcount() != 0)
        bytes.append(block, static_cast<std::size_t>(file.gcount()));
    if (file.eof() && !file.bad()) return bytes;
    why = std::strerror(errno != 0 ? errno : EIO);
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
    std::error_code none;
    return std::filesystem::is_directory(pathOf(name), none);
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

}  // namespace description
