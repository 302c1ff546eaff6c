#include "runtime/base/QVLog.h"

#include <memory>
#include <vector>

#include "runtime/base/QVErrno.h"
#include "runtime/base/product.h"
#include "runtime/host/host.h"
#include "runtime/host/utf.h"

constinit const QVLogData QVLogData::LEVEL_S{0x001};
constinit const QVLogData QVLogData::LEVEL_E{0x002};
constinit const QVLogData QVLogData::LEVEL_W{0x004};
constinit const QVLogData QVLogData::LEVEL_I{0x008};
constinit const QVLogData QVLogData::LEVEL_T{0x010};
constinit const QVLogData QVLogData::LEVEL_D{0x020};
constinit const QVLogData QVLogData::LEVEL_L{0x040};
constinit const QVLogData QVLogData::LEVEL_C{0x080};
constinit const QVLogData QVLogData::LEVEL_F{0x100};
constinit const QVLogData QVLogData::LEVEL_X{0x200};

constinit const wchar_t* const QVLog::TAB = L"    ";
constinit std::uint32_t QVLog::enabledLevels = 0;

namespace {

constexpr std::uint64_t rotateAboveBytes = 8ULL * 1024 * 1024;

std::unique_ptr<host::AppendedFile> logFile;
/// Whether the last record may lack its end: it could not be written, or not all of it.
bool lastRecordFailed = false;

wchar_t letterOf(std::uint32_t mask) {
    constexpr wchar_t letters[] = L"SEWITDLCFX";
    int bit = 0;
    while (bit < 9 && (mask >> bit) != 1)
        ++bit;
    return letters[bit];
}

bool isLineBreak(wchar_t unit) {
    return unit == L'\n' || unit == L'\r' || unit == 0x0B || unit == 0x0C || unit == 0x85 || unit == 0x2028 ||
           unit == 0x2029;
}

/// Also the controls that let a viewer show text in another order than it has.
bool isControl(wchar_t unit) {
    const bool reorders = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || reorders;
}

/// An insert as the log shows it: its line breaks lead to continuation lines, its control characters are
/// visible.
std::wstring harmless(const std::wstring& insert) {
    std::wstring safe;
    for (std::size_t i = 0; i < insert.size(); ++i) {
        const wchar_t unit = insert[i];
        if (isLineBreak(unit)) {
            if (unit == L'\r' && i + 1 < insert.size() && insert[i + 1] == L'\n') ++i;
            safe += L"\r\n";
            if (insert.compare(i + 1, 4, QVLog::TAB) != 0) safe += QVLog::TAB;
        } else if (isControl(unit)) {
            safe += formatText(L"\\x%2.2X", static_cast<unsigned int>(unit));
        } else {
            safe += unit;
        }
    }
    return safe;
}

std::wstring harmlessText(const wchar_t* format, const FormatArgument* inserts, std::size_t count) {
    std::vector<std::wstring> texts;
    texts.reserve(count);  // the arguments below point into its elements
    std::vector<FormatArgument> safe(inserts, inserts + count);
    for (FormatArgument& insert : safe) {
        if (insert.kind() == FormatArgument::Kind::number) continue;
        texts.push_back(harmless(plainText(insert)));
        insert = FormatArgument(texts.back().c_str());
    }
    return formatWith(format, safe.data(), safe.size());
}

std::wstring timeStamp(const host::LocalTime& now) {
    const int offset = now.offsetMinutes < 0 ? -now.offsetMinutes : now.offsetMinutes;
    return formatText(L"%04d-%02d-%02d %02d:%02d:%02d.%03d%c%02d:%02d", now.year, now.month, now.day,
                      now.hour, now.minute, now.second, now.millisecond, now.offsetMinutes < 0 ? L'-' : L'+',
                      offset / 60, offset % 60);
}

/// "kvxinfo.log" -> "kvxinfo.old.log"
std::wstring rotatedName(const std::wstring& name) {
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos ? name + L".old" : name.substr(0, dot) + L".old" + name.substr(dot);
}

/// This program's own setting. Whatever is wrong with it, the log starts with its default.
std::uint32_t configuredLevels() {
    const std::uint32_t standard = QVLogData::LEVEL_S.m_mask | QVLogData::LEVEL_E.m_mask |
                                   QVLogData::LEVEL_W.m_mask | QVLogData::LEVEL_I.m_mask;
    const auto setting =
        host::registryValue(std::wstring(product::clientKey) + L"\\kvxinfo", product::logLevelValue);
    const bool usable = setting.found() && setting.value.kind == host::RegistryValue::Kind::number;
    return usable ? setting.value.number : standard;
}

}  // namespace

void QVLog::write(const QVLogData& level, const wchar_t* originator, const wchar_t* format,
                  const FormatArgument* inserts, std::size_t count) noexcept try {
    if (!logFile) return;
    const std::wstring record = timeStamp(host::localTime()) + formatText(L" [%u] ", host::processId()) +
                                letterOf(level.m_mask) + L" " + originator + L": " +
                                harmlessText(format, inserts, count) + L"\r\n";
    lastRecordFailed = !logFile->append(host::toUtf8(lastRecordFailed ? L"\r\n" + record : record));
} catch (...) {
    // A record is never worth the failure that it was to describe.
}

void QVLog::start(const CString& fileName) {
    auto file = host::openForAppending(fileName.units(), rotateAboveBytes, rotatedName(fileName.units()));
    if (!file.found()) raise(file.failure, L"the trace log " + fileName + L" cannot be opened");
    logFile = std::move(file.value);
    lastRecordFailed = false;
    enabledLevels = configuredLevels();
}

void QVLog::stop() noexcept {
    enabledLevels = 0;
    logFile.reset();
}
