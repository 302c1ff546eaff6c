#include "tests/windows/made_up/shared/imports.h"

#include <cstring>

namespace made_up {

namespace {

BYTE* program() {
    return reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
}

template <class Type>
Type* at(DWORD offset) {
    return reinterpret_cast<Type*>(program() + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* imports() {
    const auto* header = at<IMAGE_NT_HEADERS>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const auto& entry = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return at<const IMAGE_IMPORT_DESCRIPTOR>(entry.VirtualAddress);
}

void write(void** where, void* value) {
    DWORD protection = 0;
    VirtualProtect(where, sizeof value, PAGE_READWRITE, &protection);
    *where = value;
    VirtualProtect(where, sizeof value, protection, &protection);
}

}  // namespace

void replaceImport(const char* library, const char* function, void* replacement) {
    for (const auto* import = imports(); import->Name != 0; ++import) {
        if (lstrcmpiA(at<char>(import->Name), library) != 0) continue;
        const auto* names = at<const ULONG_PTR>(import->OriginalFirstThunk);
        auto* addresses = at<void*>(import->FirstThunk);
        for (; *names != 0; ++names, ++addresses) {
            if (IMAGE_SNAP_BY_ORDINAL(*names)) continue;
            const auto* byName = at<const IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(*names));
            if (std::strcmp(reinterpret_cast<const char*>(byName->Name), function) == 0)
                write(addresses, replacement);
        }
    }
}

void stayLoaded(HINSTANCE library) {
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(library), &pinned);
}

}  // namespace made_up
