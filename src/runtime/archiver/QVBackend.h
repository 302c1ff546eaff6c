#pragma once

/// The server products that can stand behind the client.
class QVBackend {
public:
    static const QVBackend QSX;  ///< the backup server product

    bool operator==(const QVBackend& other) const = default;

private:
    constexpr explicit QVBackend(int kind) : m_kind(kind) {}

    int m_kind;
};
