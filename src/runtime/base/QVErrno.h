#pragma once

/// The runtime's one exception type, its record and its category.

#include <cstdint>

#include "runtime/base/CString.h"

namespace host {
struct Failure;
}

/// An error category: a number that is never 0 (and never 12, the exit status of a failed start).
class QVErrnoValue {
public:
    constexpr explicit QVErrnoValue(std::uint32_t value) : m_value(value) {}
    constexpr std::uint32_t value() const { return m_value; }

private:
    std::uint32_t m_value;
};

/// The record of one error. Copies are independent.
class QVErrnoData {
public:
    QVErrnoData() = default;  ///< a record without error: its value is 0
    QVErrnoData(const QVErrnoValue& category);
    /// `originatorMessage`: what the failing function or the operating system said.
    QVErrnoData(const QVErrnoValue& category, const CString& originatorMessage);
    virtual ~QVErrnoData() = default;
    QVErrnoData(const QVErrnoData&) = default;
    QVErrnoData& operator=(const QVErrnoData&) = default;

    /// Sets the message of `target` to the product message `messageKey` ("QRM27047E") with the text pointers
    /// `inserts`; where all of them are empty the message that was there stands behind the key. The four
    /// numbers tell the place in the source that raises the message; nothing shows them.
    template <class... Inserts>
    static void mf_setMessage(QVErrnoData& target, const wchar_t* messageKey, unsigned int, unsigned int,
                              unsigned int, unsigned int, const Inserts&... inserts) {
        target.setMessage(messageKey, {static_cast<const wchar_t*>(inserts)...});
    }

    std::uint32_t mf_getValue() const { return m_value; }
    /// The error's own message: the category's, or the one that `mf_setMessage` set.
    const CString& mf_getMessage() const { return m_message; }
    /// Never null; empty when there is none.
    const wchar_t* mf_getOriginatorMessage() const noexcept { return m_originatorMessage; }

private:
    void setMessage(const wchar_t* messageKey, std::initializer_list<const wchar_t*> inserts);

    friend class QVErrno;

    std::uint32_t m_value = 0;
    std::uint32_t m_systemError = 0;  ///< 0: none
    CString m_message;
    CString m_originatorMessage;
};

/// The exception that every failing operation of the runtime throws, by value; caught by reference.
class QVErrno {
public:
    /// The categories. A category's number is the error value of the records that are built from it.
    struct _E_ {
        static const QVErrnoValue Unknown;         ///< no known kind
        static const QVErrnoValue System;          ///< a failing operating-system call
        static const QVErrnoValue Memory;          ///< an allocation that failed
        static const QVErrnoValue Path;            ///< a failing path or directory query
        static const QVErrnoValue BufferTooSmall;  ///< a result that does not fit the buffer provided
        static const QVErrnoValue Unspecific;      ///< a failure without further detail
    };

    QVErrno(const QVErrnoData& data) : m_data(data) {}
    /// `systemError`: a code as `GetLastError` returns it; its system text becomes part of the error's text.
    /// 0: none.
    QVErrno(const QVErrnoData& data, unsigned long systemError);
    QVErrno(const QVErrno&) = default;
    QVErrno& operator=(const QVErrno&) = default;
    virtual ~QVErrno() = default;

    const QVErrnoData& mf_getData() const { return m_data; }

    /// The whole error in one line: message, originator message, then "system error N: its text". Never
    /// throws; where memory lacks even for the text, the text is empty.
    const CString mf_toString() const noexcept;

private:
    QVErrnoData m_data;
};

/// Throws a `QVErrno` of `category`. `what` says, as part of a sentence, what could not be done;
/// `systemError` is 0 or the operating system's code.
[[noreturn]] void raise(const QVErrnoValue& category, const CString& what, std::uint32_t systemError = 0);

/// The same for a failure that the host answered: category `System` with its code, or the host's own words.
[[noreturn]] void raise(const host::Failure& failure, const CString& what);
