#include "runtime/util/QVVolume.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/fact_lines.h"
#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/base/size_text.h"

namespace {

constexpr std::uint32_t errorUnrecognizedVolume = 1005;

const wchar_t* typeText(host::DriveType type) {
    switch (type) {
        case host::DriveType::fixed: return L"fixed";
        case host::DriveType::removable: return L"removable";
        case host::DriveType::network: return L"network";
        case host::DriveType::optical: return L"optical";
        case host::DriveType::ramDisk: return L"RAM disk";
        default: return L"unknown";
    }
}

CString textOf(const std::wstring& text) {
    return CString(text.empty() ? L"(none)" : text);
}

CString textOf(std::uint64_t bytes) {
    return sizeText(bytes);
}

/// A fact that is unknown for the reason for which the file system is unknown is left out: once is enough.
template <class Value>
void addFact(FactLines& lines, const wchar_t* label, const host::Answer<Value>& answer,
             const host::VolumeFacts& volume) {
    const bool sameReason = !answer.found() && !volume.fileSystem.found() &&
                            answer.status == volume.fileSystem.status &&
                            answer.failure.code == volume.fileSystem.failure.code;
    if (answer.found()) {
        lines.add(label, textOf(answer.value));
    } else if (!sameReason) {
        lines.add(label, unknownFact(answer));
    }
}

}  // namespace

CString QVVolume::name() const {
    if (m_facts.letter) return formatted(L"%c:", *m_facts.letter);
    if (!m_facts.folders.empty()) return CString(m_facts.folders.front());
    return isListed() ? CString(m_facts.device) : CString(L"(not listed)");
}

bool QVVolume::isListed() const {
    return m_facts.letter || !m_facts.folders.empty() || !m_facts.device.empty();
}

const CString QVVolume::mf_toString(const CString& prefix) const {
    if (operation::answersZero(L"QVVolume::mf_toString", [this] { return name(); })) return {};
    if (!isListed()) return prefix + unknownFact(m_facts.fileSystem, L"The volumes cannot be listed");
    FactLines lines(prefix, 13);
    if (m_facts.letter) lines.add(L"Drive:", name());
    for (const std::wstring& folder : m_facts.folders)
        lines.add(L"Mounted in:", CString(folder));
    if (!m_facts.letter && m_facts.folders.empty())
        lines.add(L"Drive:", m_facts.paths.found() ? CString(L"(none)") : unknownFact(m_facts.paths));
    if (!m_facts.device.empty()) lines.add(L"Volume:", CString(m_facts.device));
    addFact(lines, L"Label:", m_facts.label, m_facts);
    lines.add(L"Type:", typeText(m_facts.type));
    lines.add(L"File system:", m_facts.fileSystem.found() ? textOf(m_facts.fileSystem.value)
                                                          : unknownFact(m_facts.fileSystem));
    addFact(lines, L"Size:", m_facts.sizeBytes, m_facts);
    addFact(lines, L"Free:", m_facts.freeBytes, m_facts);
    return lines.text();
}

const CString QVVolume::mf_getFileSystemName() const {
    if (operation::answersZero(L"QVVolume::mf_getFileSystemName", [this] { return name(); })) return {};
    const auto& answer = m_facts.fileSystem;
    const CString what = formatted(L"the file system of %s is unknown", name());
    if (answer.isMissing()) raise(QVErrno::_E_::System, what, errorUnrecognizedVolume);
    if (!answer.found()) raise(answer.failure, what);
    return CString(answer.value);
}

wchar_t QVVolume::mf_getDriveLetter() const {
    if (operation::answersZero(L"QVVolume::mf_getDriveLetter", [this] { return name(); })) return 0;
    if (m_facts.letter) return *m_facts.letter;
    if (!m_facts.paths.found())
        raise(m_facts.paths.failure, formatted(L"the drive letter of volume %s is unknown", name()));
    raise(QVErrno::_E_::Path, formatted(L"volume %s has no drive letter", name()));
}
