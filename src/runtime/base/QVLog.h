#pragma once

/// The trace log.

#include <cstdint>

#include "runtime/base/CString.h"

/// A log level. A log-level setting is an OR of masks; a level is enabled when its bit is set.
class QVLogData {
public:
    std::uint32_t m_mask;

    static const QVLogData LEVEL_S;  ///< 0x001 severe errors
    static const QVLogData LEVEL_E;  ///< 0x002 errors: every failure
    static const QVLogData LEVEL_W;  ///< 0x004 warnings
    static const QVLogData LEVEL_I;  ///< 0x008 information
    static const QVLogData LEVEL_T;  ///< 0x010 trace: each operation of the runtime as it begins
    static const QVLogData LEVEL_D;  ///< 0x020 details
    static const QVLogData LEVEL_L;  ///< 0x040 lists
    static const QVLogData LEVEL_C;  ///< 0x080 calls
    static const QVLogData LEVEL_F;  ///< 0x100 functions
    static const QVLogData LEVEL_X;  ///< 0x200 extended records
};

class QVLog {
public:
    /// Begins every continuation line of a record: four blanks.
    static const wchar_t* const TAB;

    /// Appends one record: time, process, level, `originator` and the formatted text, and hands it to the
    /// operating system. Does nothing before the log was started, after it was stopped, and for a level that
    /// is not enabled. Line breaks that come with an insert are led by TAB, its other control characters are
    /// shown as "\xNN": no insert can forge a record. Never throws; a record that cannot be written is lost,
    /// and the next one begins on a line of its own.
    template <class... Inserts>
    static void mf_writeMessage(const QVLogData& level, const wchar_t* originator, const wchar_t* format,
                                const Inserts&... inserts) noexcept {
        if (!isEnabled(level)) return;
        if constexpr (sizeof...(Inserts) == 0) {
            write(level, originator, format, nullptr, 0);
        } else {
            const FormatArgument list[] = {FormatArgument(inserts)...};
            write(level, originator, format, list, sizeof...(Inserts));
        }
    }

    /// Whether operations are recorded (level T).
    static bool traces() noexcept { return isEnabled(QVLogData::LEVEL_T); }

    /// Opens the log under `fileName` in the current directory. A file of more than 8 MiB is renamed first,
    /// "x.log" to "x.old.log". The enabled levels are the registry value "LogLevel" of this program, else S,
    /// E, W and I. Throws `QVErrno` when it cannot be opened. Called by `QVMain` only, as is `stop`.
    static void start(const CString& fileName);
    static void stop() noexcept;

private:
    static bool isEnabled(const QVLogData& level) noexcept { return (enabledLevels & level.m_mask) != 0; }
    static void write(const QVLogData& level, const wchar_t* originator, const wchar_t* format,
                      const FormatArgument* inserts, std::size_t count) noexcept;

    static std::uint32_t enabledLevels;  ///< 0 while there is no log
};
