#include "runtime/admin/QVConfigFileBase.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/operation.h"
#include "runtime/host/host.h"

namespace {

constexpr std::uint64_t maximumBytes = 16ULL * 1024 * 1024;
constexpr std::uint32_t errorFileNotFound = 2;

std::string contentsOf(const CString& path) {
    auto bytes = host::fileContents(path.units(), maximumBytes);
    const CString what = formatted(L"'%s' cannot be read", path);
    if (bytes.isMissing()) raise(QVErrno::_E_::System, what, errorFileNotFound);
    if (!bytes.found()) raise(bytes.failure, what);
    return std::move(bytes.value);
}

}  // namespace

void QVConfigFileBase::mf_parse() {
    if (operation::answersZero(L"QVConfigFileBase::mf_parse", m_path)) return;
    parse();
}

void QVConfigFileBase::parse() {
    discard();
    checkPath();
    const std::string bytes = contentsOf(m_path);
    ConfigLines lines(bytes);
    ConfigLine line;
    try {
        while (lines.next(line))
            parseLine(line);
    } catch (const ConfigMistake& mistake) {
        raise(QVErrno::_E_::Unspecific,
              formatted(L"%s, line %u: %s", m_path, static_cast<unsigned long long>(line.number),
                        mistake.text));
    }
}
