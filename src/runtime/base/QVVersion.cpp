#include "runtime/base/QVVersion.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"

const CString QVVersion::mf_VersionNumberToVersionString(unsigned long number) {
    if (operation::answersZero(L"QVVersion::mf_VersionNumberToVersionString")) return {};
    const auto field = [number](int shift) { return static_cast<std::uint32_t>(number >> shift & 0xFFU); };
    return CString(host::versionText({field(24), field(16), field(8), field(0)}));
}

unsigned long QVVersion::pack(const host::DottedVersion& version) {
    unsigned long packed = 0;
    for (const std::uint32_t field : version) {
        if (field > 0xFF)
            raise(QVErrno::_E_::Unspecific,
                  CString(L"version " + host::versionText(version) + L" cannot be packed"));
        packed = packed << 8 | field;
    }
    return packed;
}
