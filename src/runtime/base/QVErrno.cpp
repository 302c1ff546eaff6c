#include "runtime/base/QVErrno.h"

#include "runtime/base/system_error.h"
#include "runtime/host/answer.h"
#include "runtime/host/text.h"

constinit const QVErrnoValue QVErrno::_E_::Unknown{1};
constinit const QVErrnoValue QVErrno::_E_::System{2};
constinit const QVErrnoValue QVErrno::_E_::Memory{3};
constinit const QVErrnoValue QVErrno::_E_::Path{4};
constinit const QVErrnoValue QVErrno::_E_::BufferTooSmall{5};
constinit const QVErrnoValue QVErrno::_E_::Unspecific{6};

namespace {

const wchar_t* messageOf(std::uint32_t category) {
    switch (category) {
        case 2: return L"System call failed";
        case 3: return L"Not enough memory";
        case 4: return L"Path query failed";
        case 5: return L"Buffer too small";
        case 6: return L"Operation failed";
        default: return L"Unknown error";
    }
}

}  // namespace

QVErrnoData::QVErrnoData(const QVErrnoValue& category) : QVErrnoData(category, CString()) {}

QVErrnoData::QVErrnoData(const QVErrnoValue& category, const CString& originatorMessage)
    : m_value(category.value()),
      m_message(messageOf(category.value())),
      m_originatorMessage(originatorMessage) {}

void QVErrnoData::setMessage(const wchar_t* messageKey, std::initializer_list<const wchar_t*> inserts) {
    CString details;
    for (const wchar_t* insert : inserts) {
        if (insert != nullptr && *insert != L'\0') details = details + L": " + insert;
    }
    m_message = messageKey + (details.IsEmpty() ? L": " + m_message : details);
}

QVErrno::QVErrno(const QVErrnoData& data, unsigned long systemError) : m_data(data) {
    m_data.m_systemError = static_cast<std::uint32_t>(systemError);
}

const CString QVErrno::mf_toString() const noexcept try {
    std::wstring text = m_data.mf_getMessage().units();
    const std::wstring originator = m_data.mf_getOriginatorMessage();
    const bool told = text.ends_with(originator);  // by a message that has it as its insert
    if (!told) text += (text.empty() ? L"" : L": ") + originator;
    text += systemErrorPhrase(m_data.m_systemError);
    return CString(host::inOneLine(std::move(text)));
} catch (...) {
    return {};
}

void raise(const QVErrnoValue& category, const CString& what, std::uint32_t systemError) {
    throw QVErrno(QVErrnoData(category, what), systemError);
}

void raise(const host::Failure& failure, const CString& what) {
    const CString text = failure.text.empty() ? what : what + L": " + failure.text.c_str();
    raise(failure.code != 0 ? QVErrno::_E_::System : QVErrno::_E_::Unspecific, text, failure.code);
}
