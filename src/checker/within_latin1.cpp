#include "checker/within_latin1.h"

namespace {

bool isLeadSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isTrailSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

CString withinLatin1(const CString& text) {
    const std::wstring& units = text.units();
    std::wstring narrow;
    narrow.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        narrow += units[i] > 0xFF ? L'?' : units[i];
        const bool isPair =
            isLeadSurrogate(units[i]) && i + 1 < units.size() && isTrailSurrogate(units[i + 1]);
        if (isPair) ++i;
    }
    return CString(narrow);
}
