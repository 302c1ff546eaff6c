#pragma once

/// How much space an account may use.

#include <cstdint>

#include "runtime/base/CString.h"

/// A number of bytes, or unlimited, or none at all.
class QVQuota {
public:
    QVQuota() = default;  ///< no quota
    static QVQuota ofBytes(std::uint64_t bytes) { return {Kind::bytes, bytes}; }
    static QVQuota unlimited() { return {Kind::unlimited, 0}; }

    /// "500 MB (524288000 bytes)", "unlimited", "no quota". `detail` is 1, the one form that there is. May
    /// throw `QVErrno`.
    const CString mf_toString(int detail) const;

    /// By size: no quota, then bytes, then unlimited.
    bool operator<(const QVQuota& other) const {
        return m_kind != other.m_kind ? m_kind < other.m_kind : m_bytes < other.m_bytes;
    }
    bool operator==(const QVQuota& other) const = default;

private:
    enum class Kind { none, bytes, unlimited };

    QVQuota(Kind kind, std::uint64_t bytes) : m_kind(kind), m_bytes(bytes) {}
    CString text() const;

    Kind m_kind = Kind::none;
    std::uint64_t m_bytes = 0;
};
