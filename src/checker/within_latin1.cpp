#include "checker/within_latin1.h"

#include "runtime/host/utf.h"

CString withinLatin1(const CString& text) {
    const std::wstring& units = text.units();
    std::wstring narrow;
    narrow.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        narrow += units[i] > 0xFF ? L'?' : units[i];
        const bool isPair = host::isHighSurrogate(static_cast<char32_t>(units[i])) && i + 1 < units.size() &&
                            host::isLowSurrogate(static_cast<char32_t>(units[i + 1]));
        if (isPair) ++i;
    }
    return CString(narrow);
}
