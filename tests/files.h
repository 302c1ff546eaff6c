#pragma once

/// Files that tests make and read, on every host.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

/// All bytes of a file; none when it cannot be read.
inline std::string fileBytes(const std::filesystem::path& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Makes a file of these bytes, in the place of an earlier one.
inline void makeFile(const std::filesystem::path& name, std::string_view bytes) {
    std::ofstream(name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Makes an empty folder the current directory as long as it lives, and removes it with all that is in it.
class TemporaryDirectory {
public:
    TemporaryDirectory() : m_before(std::filesystem::current_path()) {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("kvx" + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
        std::filesystem::current_path(m_path);
    }
    ~TemporaryDirectory() {
        std::error_code left;
        std::filesystem::current_path(m_before, left);
        std::filesystem::remove_all(m_path, left);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_before, m_path;
};
