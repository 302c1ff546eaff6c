#pragma once

/// Files that the build put into the program.

#include <cstddef>

namespace embedded {

struct File {
    const char* name;  ///< relative, with "/"; null ends the list
    const unsigned char* bytes;
    std::size_t size;
};

/// The files of `machines/sample`: the machine that is examined when no other is named.
extern const File sampleMachine[];

}  // namespace embedded
