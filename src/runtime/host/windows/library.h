#pragma once

/// System libraries that are loaded when they are needed. Only libraries that Windows always takes from its
/// own folder are imported; any other, planted beside the program, would be loaded in place of the system's.

#include <bit>

#include "runtime/host/windows/handle.h"

namespace host::windows {

/// A library from the system's folder, and from nowhere else. Given back when it goes.
class Library {
public:
    explicit Library(const wchar_t* name) noexcept
        : m_module(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)),
          m_error(m_module ? ERROR_SUCCESS : GetLastError()) {}

    bool loaded() const noexcept { return static_cast<bool>(m_module); }
    /// Why it is not loaded: "module not found" where the system does not have it.
    DWORD error() const noexcept { return m_error; }
    /// Null when the library or the function is not there.
    FARPROC address(const char* function) const noexcept {
        return m_module ? GetProcAddress(m_module.get(), function) : nullptr;
    }

private:
    Owner<NullableTraits<HMODULE, FreeLibrary>> m_module;
    DWORD m_error;
};

template <class Signature>
class Function;

/// A function of a system library. It may not be there: ask before calling it, or call it by `code`.
template <class Result, class... Parameters>
class Function<Result(Parameters...)> {
public:
    Function(const Library& library, const char* name) noexcept
        : m_function(std::bit_cast<Pointer>(library.address(name))),
          m_error(m_function != nullptr ? ERROR_SUCCESS
                  : library.loaded()    ? ERROR_PROC_NOT_FOUND
                                        : library.error()) {}
    /// One of a library that is always loaded.
    Function(const wchar_t* loadedLibrary, const char* name) noexcept
        : m_function(std::bit_cast<Pointer>(GetProcAddress(GetModuleHandleW(loadedLibrary), name))),
          m_error(m_function != nullptr ? ERROR_SUCCESS : ERROR_PROC_NOT_FOUND) {}

    explicit operator bool() const noexcept { return m_function != nullptr; }
    /// Why it cannot be called.
    DWORD error() const noexcept { return m_error; }

    Result operator()(Parameters... parameters) const { return m_function(parameters...); }

    /// For functions that return an error code: theirs, or why they cannot be called.
    DWORD code(Parameters... parameters) const {
        return m_function != nullptr ? static_cast<DWORD>(m_function(parameters...)) : m_error;
    }

private:
    using Pointer = Result(WINAPI*)(Parameters...);
    Pointer m_function;
    DWORD m_error;
};

}  // namespace host::windows
