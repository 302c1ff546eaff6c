#include "runtime/host/host.h"
#include "runtime/host/text.h"
#include "runtime/host/windows/handle.h"

namespace host {

namespace {

using SystemText = windows::Owner<windows::NullableTraits<wchar_t*, LocalFree>>;
using MessageFile = windows::Owner<windows::NullableTraits<HMODULE, FreeLibrary>>;

/// The message of a table; `source` is null for the system's own table.
std::wstring messageText(std::uint32_t code, HMODULE source) {
    const DWORD table = source != nullptr ? FORMAT_MESSAGE_FROM_HMODULE : FORMAT_MESSAGE_FROM_SYSTEM;
    const DWORD inOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
    SystemText text;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | table | inOneLine,
                       source, code, 0, reinterpret_cast<wchar_t*>(text.receive()), 0, nullptr);
    return text ? std::wstring(text.get(), length) : std::wstring();
}

/// The networking functions keep the texts of their codes in a file of their own.
std::wstring networkMessageText(std::uint32_t code) {
    const MessageFile file(
        LoadLibraryExW(L"netmsg.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_SEARCH_SYSTEM32));
    return file ? messageText(code, file.get()) : std::wstring();
}

}  // namespace

std::wstring systemErrorText(std::uint32_t code) {
    constexpr std::uint32_t firstOfNetwork = 2100, lastOfNetwork = 3099;
    std::wstring text = inOneLine(messageText(code, nullptr));
    if (text.empty() && code >= firstOfNetwork && code <= lastOfNetwork)
        text = inOneLine(networkMessageText(code));
    return text.empty() ? L"unknown error" : text;
}

}  // namespace host
