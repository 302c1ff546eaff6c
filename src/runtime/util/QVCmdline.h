#pragma once

/// The arguments of the command line.

#include <vector>

#include "runtime/base/CString.h"

/// The arguments that are still held, in order, without the program's name.
class QVCmdline {
public:
    /// Copies the arguments behind the first. May throw `QVErrno`.
    QVCmdline(int argc, wchar_t* const* argv);

    int mf_getSize() const;

    /// Non-zero when an argument equal to `name` (case-sensitive) is held; with `remove` the first such one
    /// is taken out.
    int mf_getArgument(const CString& name, int remove);

    /// Copies the argument at `index` into `out`; with `remove` it is taken out. 0 when there is none.
    int mf_getArgument(int index, CString& out, int remove);

private:
    std::vector<CString> m_arguments;
};
