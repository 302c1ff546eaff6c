#pragma once

/// Owners of what the operating system lends and wants back.

#include <utility>

#include "runtime/host/os.h"

namespace host::windows {

/// Owns one handle or one piece of the system's memory and gives it back when it goes. `Traits` names the
/// type (`Handle`), the value that is none (`none()`) and the way back (`close(handle)`).
template <class Traits>
class Owner {
public:
    using Handle = typename Traits::Handle;

    Owner() = default;
    explicit Owner(Handle handle) noexcept : m_handle(handle) {}
    ~Owner() { reset(); }
    Owner(Owner&& other) noexcept : m_handle(std::exchange(other.m_handle, Traits::none())) {}
    Owner& operator=(Owner&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    explicit operator bool() const noexcept { return m_handle != Traits::none(); }
    Handle get() const noexcept { return m_handle; }
    Handle operator->() const noexcept { return m_handle; }

    /// Where a call is to leave a new handle; what was held before is given back.
    Handle* receive() noexcept {
        reset();
        return &m_handle;
    }

private:
    void reset() noexcept {
        if (m_handle != Traits::none()) Traits::close(std::exchange(m_handle, Traits::none()));
    }

    Handle m_handle = Traits::none();
};

/// Traits of a handle whose "none" is a null pointer and whose way back is an imported function.
template <class HandleType, auto closeFunction>
struct NullableTraits {
    using Handle = HandleType;
    static Handle none() noexcept { return nullptr; }
    static void close(Handle handle) noexcept { closeFunction(handle); }
};

struct FileTraits {
    using Handle = HANDLE;
    static Handle none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) noexcept { CloseHandle(handle); }
};
struct FindFileTraits {
    using Handle = HANDLE;
    static Handle none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) noexcept { FindClose(handle); }
};
struct FindVolumeTraits {
    using Handle = HANDLE;
    static Handle none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Handle handle) noexcept { FindVolumeClose(handle); }
};

using FileHandle = Owner<FileTraits>;
using FindFileHandle = Owner<FindFileTraits>;
using FindVolumeHandle = Owner<FindVolumeTraits>;
using RegistryKeyHandle = Owner<NullableTraits<HKEY, RegCloseKey>>;

}  // namespace host::windows
