#include "runtime/base/QVString.h"

#include "catalog/catalog.h"

namespace {

/// What a message without a text shows: nothing that the program meant to say is lost.
std::wstring identified(unsigned int id, std::initializer_list<FormatArgument> inserts) {
    std::wstring text = L"[" + plainText(FormatArgument(id));
    for (const FormatArgument& insert : inserts)
        text += L"|" + plainText(insert);
    return text + L"]";
}

}  // namespace

FormatArgument::FormatArgument(const QVString& text) : m_kind(Kind::text), m_text(text) {}

CString& CString::operator=(const QVString& text) {
    return *this = CString(static_cast<const wchar_t*>(text));
}

CString& CString::operator+=(const QVString& text) {
    return *this += static_cast<const wchar_t*>(text);
}

QVString::QVString(unsigned int id, std::initializer_list<FormatArgument> inserts) {
    const wchar_t* text = catalog::textOf(id);
    m_text = text != nullptr ? formatWith(text, inserts.begin(), inserts.size()) : identified(id, inserts);
}
