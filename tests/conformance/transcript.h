#pragma once

/// The transcript: one line for each question, with its answer.

#include <functional>
#include <vector>

#include "runtime/base/CString.h"

namespace conformance {

/// A text in quotes and in ASCII: other characters, and controls, as "\uXXXX". A long one is shortened, with
/// its length and a sum that tells it from others.
CString shown(const CString& text);
/// A number, decimal.
CString shown(int number);
CString shown(unsigned long number);

/// What a question is about, as the transcript shows it.
class Subject {
public:
    Subject(const wchar_t* text) : m_text(shown(CString(text))) {}
    Subject(const CString& text) : m_text(shown(text)) {}
    Subject(int number) : m_text(shown(number)) {}
    Subject(unsigned long number) : m_text(shown(number)) {}

    const CString& text() const { return m_text; }

private:
    CString m_text;
};

/// Asks and writes the line `operation subject... -> answer`. An exception is an answer too: "QVErrno" with
/// the value of its category and its text. The records that the question left in the log stand behind.
void ask(const wchar_t* operation, const std::vector<Subject>& subjects,
         const std::function<CString()>& question);

/// Asks for a description and writes a line for each of its lines, numbered from 1.
void askLines(const wchar_t* operation, const CString& subject, const std::function<CString()>& question);

/// The records that were logged since this was called last, without time and process; may be empty.
CString newRecords();

/// How the last record of `newRecords` began, with "9" for each digit, and one for the process.
CString headOfLastRecord();

/// The log that `newRecords` reads, in the current directory.
inline constexpr const wchar_t* logName = L"conformance.log";

}  // namespace conformance
