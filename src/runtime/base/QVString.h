#pragma once

/// Texts of the message catalog.

#include <type_traits>

#include "catalog/inserts.h"
#include "runtime/base/CString.h"

/// A message identifier that is known, when it is compiled, to take inserts of these types. An identifier
/// that does not exist or takes other inserts does not compile.
template <class... Inserts>
class MessageId {
public:
    consteval MessageId(unsigned int id) : m_id(id) {
        const char* kinds = catalog::insertsOf(id);
        if (kinds == nullptr) throw "no such message";
        ((*kinds == kindOf<Inserts>() ? void(++kinds) : throw "the message takes another insert here"), ...);
        if (*kinds != '\0') throw "the message takes more inserts";
    }

    constexpr unsigned int value() const { return m_id; }

private:
    template <class Insert>
    static consteval char kindOf() {
        using Plain = std::remove_cvref_t<Insert>;
        if constexpr (std::is_same_v<Plain, wchar_t>) return 'c';
        if constexpr (std::is_same_v<Plain, unsigned int> || std::is_same_v<Plain, unsigned long>) return 'u';
        if constexpr (std::is_integral_v<Plain>) throw "numbers in messages are unsigned and have 32 bits";
        return 's';
    }

    unsigned int m_id;
};

/// The finished text of one message of the catalog, in the thread's language (`QVThreadContext`; English is
/// the only one yet). Made to be read at once: build it, take or append its text, let it go.
class QVString {
public:
    /// The text of message `id` with `inserts` formatted into it in order: texts, unsigned 32-bit numbers,
    /// single characters. A catalog without a text for `id` gives "[id|insert|insert...]": numbers decimal, a
    /// character as itself. Never fails but for lack of memory.
    template <class... Inserts>
    QVString(MessageId<std::type_identity_t<Inserts>...> id, const Inserts&... inserts)
        : QVString(id.value(), {FormatArgument(inserts)...}) {}

    virtual ~QVString() = default;
    QVString(const QVString&) = default;
    QVString& operator=(const QVString&) = default;

    operator const CString() const { return m_text; }
    operator const wchar_t*() const { return m_text; }

    /// The same for an identifier that is known only at run time, so that nothing was checked.
    static QVString unchecked(unsigned int id, std::initializer_list<FormatArgument> inserts) {
        return {id, inserts};
    }

private:
    QVString(unsigned int id, std::initializer_list<FormatArgument> inserts);

    CString m_text;
};

inline CString operator+(CString left, const QVString& right) {
    return std::move(left += right);
}
inline CString operator+(const QVString& left, const CString& right) {
    return CString(static_cast<const wchar_t*>(left)) + right;
}
inline CString operator+(const QVString& left, const wchar_t* right) {
    return CString(static_cast<const wchar_t*>(left)) + right;
}
inline CString operator+(const wchar_t* left, const QVString& right) {
    return CString(left) + right;
}
inline CString operator+(const QVString& left, const QVString& right) {
    return CString(static_cast<const wchar_t*>(left)) + right;
}
