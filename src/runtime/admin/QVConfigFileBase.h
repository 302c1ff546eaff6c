#pragma once

/// A configuration file of the client: text, one entry a line.

#include "runtime/admin/config_text.h"
#include "runtime/base/CString.h"

class QVConfigFileBase {
public:
    explicit QVConfigFileBase(const CString& path) : m_path(path) {}
    virtual ~QVConfigFileBase() = default;
    QVConfigFileBase(const QVConfigFileBase&) = delete;
    QVConfigFileBase& operator=(const QVConfigFileBase&) = delete;

    /// Reads and parses the file; what an earlier parse left is forgotten first. Throws `QVErrno` when the
    /// file cannot be read, is larger than 16 MiB, or holds a mistake: the error names file and line and what
    /// was expected. What was read up to there is kept.
    void mf_parse();
    /// The same for the runtime's own needs: no operation of the program.
    void parse();

    const CString& mf_getPath() const { return m_path; }

protected:
    /// Forgets everything read so far.
    virtual void discard() noexcept = 0;
    /// Called before the file is asked for; throws `QVErrno` when it cannot even be looked for.
    virtual void checkPath() const {}
    /// Takes the next line. Throws `ConfigMistake`.
    virtual void parseLine(const ConfigLine& line) = 0;

private:
    CString m_path;
};
