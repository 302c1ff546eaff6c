#pragma once

/// What a library hands out as the system does: records in one piece of memory with their texts behind them,
/// counted until it is given back.

#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "runtime/host/facts.h"
#include "runtime/host/os.h"

namespace made_up {

BYTE* memory(std::size_t size);
/// A null pointer may be given back.
void giveBack(void* memory);
/// How many bytes a piece holds.
std::size_t sizeOf(const void* memory);
/// How many pieces of memory were not given back yet.
long piecesOut();

/// Records that are being laid out. The texts and SIDs to which members refer are added by `text` and `sid`;
/// where the system is to have none, the members stay null.
template <class Record>
class Records {
public:
    explicit Records(std::size_t count, bool withoutNames = false)
        : m_records(count), m_withoutNames(withoutNames) {}

    void text(wchar_t* Record::*member, std::size_t index, const std::wstring& text) {
        refer(reinterpret_cast<void**>(&(m_records[index].*member)), text.c_str(),
              (text.size() + 1) * sizeof(wchar_t));
    }
    template <class Pointer>
    void sid(Pointer Record::*member, std::size_t index, const host::Sid& sid) {
        refer(reinterpret_cast<void**>(&(m_records[index].*member)), &sid, 8 + 4U * sid.subAuthorityCount);
    }
    Record& operator[](std::size_t index) { return m_records[index]; }

    /// All in one piece of memory.
    BYTE* piece() const {
        const std::size_t size = m_records.size() * sizeof(Record);
        BYTE* piece = memory(size + m_behind.size());
        if (size != 0) std::memcpy(piece, m_records.data(), size);
        if (!m_behind.empty()) std::memcpy(piece + size, m_behind.data(), m_behind.size());
        for (const auto& [where, target] : m_references) {
            const BYTE* pointer = piece + size + target;
            std::memcpy(piece + where, &pointer, sizeof pointer);
        }
        return piece;
    }

private:
    void refer(void** pointer, const void* bytes, std::size_t size) {
        if (m_withoutNames) return;
        const auto where = static_cast<std::size_t>(reinterpret_cast<BYTE*>(pointer) -
                                                    reinterpret_cast<BYTE*>(m_records.data()));
        m_references.emplace_back(where, m_behind.size());
        const auto* first = static_cast<const BYTE*>(bytes);
        m_behind.insert(m_behind.end(), first, first + size);
        m_behind.resize((m_behind.size() + 7) / 8 * 8);
    }

    std::vector<Record> m_records;
    bool m_withoutNames;
    std::vector<BYTE> m_behind;
    std::vector<std::pair<std::size_t, std::size_t>> m_references;  ///< offsets: pointer, target
};

}  // namespace made_up
