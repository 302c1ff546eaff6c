#pragma once

/// Files and descriptors of this computer.

#include <string>
#include <string_view>

namespace described {

/// The file name of this computer for a relative name of the machine's: UTF-8, with "/".
std::string nativeName(std::wstring_view path);

/// Owns a file descriptor of this computer; closes it, where there is one.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&&) = delete;

    /// Below 0: nothing could be opened, and errno told why.
    int number() const { return m_number; }

private:
    int m_number;
};

/// Writes all bytes, however many calls that takes; false when one of them failed.
bool writeAll(int descriptor, std::string_view bytes) noexcept;

}  // namespace described
