#pragma once

/// The console.
class QVTerminalPrinter {
public:
    /// Writes `text` exactly as given. Never throws; output that can no longer be written ends nothing else.
    static void mf_print(const wchar_t* text) noexcept;

    /// Brings everything printed so far to its destination: should the run be interrupted, no more than what
    /// comes behind is lost. Never throws.
    static void flush() noexcept;

    /// The same before the tear-down; when output was lost, one record of level E says so.
    static void complete() noexcept;
};
