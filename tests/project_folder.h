#pragma once

#include <filesystem>

/// The folder of the project, which the build names: what the compiler calls a file may be relative to anything.
inline std::filesystem::path projectFolder() {
    return KVX_PROJECT_FOLDER;
}
