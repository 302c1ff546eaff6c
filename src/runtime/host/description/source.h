#pragma once

/// The files of a description: where they come from, and their lines.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace description {

/// Reads the files of descriptions by name.
class SourceFiles {
public:
    virtual ~SourceFiles() = default;
    SourceFiles() = default;
    SourceFiles(const SourceFiles&) = delete;
    SourceFiles& operator=(const SourceFiles&) = delete;

    /// The bytes of a file; nothing, and the reason in `why`, when it cannot be read.
    virtual std::optional<std::string> read(const std::string& name, std::string& why) const = 0;
    virtual bool isFolder(const std::string& name) const = 0;
};

/// Real files, and the embedded sample machine under "sample:".
class RealFiles : public SourceFiles {
public:
    std::optional<std::string> read(const std::string& name, std::string& why) const override;
    bool isFolder(const std::string& name) const override;
};

/// One description held in memory under a name; the embedded sample is there as well, and nothing else.
class MemoryFiles : public SourceFiles {
public:
    MemoryFiles(std::string name, std::string bytes) : m_name(std::move(name)), m_bytes(std::move(bytes)) {}
    std::optional<std::string> read(const std::string& name, std::string& why) const override;
    bool isFolder(const std::string&) const override { return false; }

private:
    std::string m_name, m_bytes;
};

/// Begins the names of the embedded sample's files.
inline constexpr std::string_view samplePrefix = "sample:";

/// The name of `name` as the file `from` means it: relative to the folder of `from`.
std::string besideFile(const std::string& from, const std::string& name);

/// Splits text into lines at LF, CR LF or CR. UTF-8 with or without byte order mark, or UTF-16 with one.
std::vector<std::wstring> linesOf(std::string_view bytes);

}  // namespace description
