#include "runtime/base/size_text.h"

namespace {

constexpr unsigned long long kilobyte = 1024;

CString bytesText(unsigned long long bytes) {
    return formatted(L"%u %s", bytes, bytes == 1 ? L"byte" : L"bytes");
}

}  // namespace

CString sizeText(std::uint64_t bytes) {
    if (bytes < kilobyte) return bytesText(bytes);
    const wchar_t* const units[] = {L"KB", L"MB", L"GB", L"TB"};
    unsigned long long unit = kilobyte;
    std::size_t index = 0;
    while (index < 3 && bytes / unit >= kilobyte) {
        unit *= kilobyte;
        ++index;
    }
    const unsigned long long whole = bytes / unit;
    const unsigned long long rest = bytes % unit;
    if (rest == 0) return formatted(L"%u %s", whole, units[index]);
    return formatted(L"%u.%u %s", whole, rest / (unit / kilobyte) * 10 / kilobyte, units[index]);
}

CString exactSizeText(std::uint64_t bytes) {
    const CString text = sizeText(bytes);
    return bytes < kilobyte ? text : text + L" (" + bytesText(bytes) + L")";
}
