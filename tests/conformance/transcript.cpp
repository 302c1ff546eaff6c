#include "tests/conformance/transcript.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iterator>
#include <string>

#include "runtime/base/QVErrno.h"
#include "runtime/host/utf.h"
#include "runtime/util/QVTerminalPrinter.h"

namespace conformance {

namespace {

constexpr std::size_t longestShown = 600;
constexpr std::size_t shortestRun = 32;

CString escaped(wchar_t unit) {
    if (unit == L'\r') return L"\\r";
    if (unit == L'\n') return L"\\n";
    if (unit < L' ' || unit > L'~') return formatted(L"\\u%4.4X", static_cast<unsigned int>(unit));
    return CString(std::wstring(1, unit));
}

/// A character that comes many times in a row is shown once, with its number: "r{300}".
CString escaped(const std::wstring& text) {
    CString result;
    for (std::size_t begin = 0; begin < text.size();) {
        const wchar_t unit = text[begin];
        const std::size_t end = std::min(text.find_first_not_of(unit, begin), text.size());
        const bool isRun = end - begin >= shortestRun;
        result += escaped(unit);
        if (isRun) result += formatted(L"{%u}", static_cast<unsigned int>(end - begin));
        begin = isRun ? end : begin + 1;
    }
    return result;
}

std::uint32_t sumOf(const std::wstring& text) {
    std::uint32_t sum = 2166136261U;
    for (const wchar_t unit : text)
        sum = (sum ^ static_cast<std::uint32_t>(unit)) * 16777619U;
    return sum;
}

std::wstring lastHead;

bool isDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

/// "2026-11-20 17:05:09.123+01:00 [4711]" as "9999-99-99 99:99:99.999+99:99 [9]".
std::wstring shapeOf(std::wstring head) {
    std::replace_if(head.begin(), head.end(), isDigit, L'9');
    const std::size_t process = head.find(L"[9");
    if (process != std::wstring::npos) head.erase(process + 2, head.find(L']', process) - process - 2);
    return head;
}

/// "2026-11-20 17:05:09.123+01:00 [4711] E name: text" from the level on; a continuation line as it is.
std::wstring withoutTime(const std::wstring& line) {
    const std::size_t end = line.find(L"] ");
    const bool isRecord = end != std::wstring::npos && isDigit(line[0]);
    if (!isRecord) return line;
    lastHead = shapeOf(line.substr(0, end + 1));
    return line.substr(end + 2);
}

/// What stands between the CR LFs of a text.
std::vector<std::wstring> linesOf(const std::wstring& text) {
    std::vector<std::wstring> lines;
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(L"\r\n", begin)) != std::wstring::npos; begin = end + 2)
        lines.push_back(text.substr(begin, end - begin));
    lines.push_back(text.substr(begin));
    return lines;
}

CString answerTo(const std::function<CString()>& question) try { return question(); } catch (QVErrno& error) {
    const CString text = error.mf_toString();
    return formatted(L"QVErrno %u ", error.mf_getData().mf_getValue()) + shown(text);
} catch (const std::exception&) {
    return L"an exception that is none of the runtime's";
}

}  // namespace

CString shown(const CString& text) {
    const std::wstring& units = text.units();
    const CString whole = escaped(units);
    if (whole.units().size() <= longestShown) return L"'" + whole + L"'";
    return L"'" + escaped(units.substr(0, 40)) +
           formatted(L"...' (%u units, sum %8.8x)", static_cast<unsigned int>(units.size()), sumOf(units));
}

CString shown(int number) {
    return formatted(L"%d", number);
}

CString shown(unsigned long number) {
    return formatted(L"%u", number);
}

CString newRecords() {
    static std::streamoff read = 0;
    std::ifstream file(host::toUtf8(logName), std::ios::binary);
    file.seekg(read);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    read += static_cast<std::streamoff>(bytes.size());
    CString records;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        const bool complete = end != std::string::npos;
        const std::string line = bytes.substr(at, complete ? end - at : std::string::npos);
        records += (records.IsEmpty() ? L"" : L" | ") + escaped(withoutTime(host::fromUtf8(line)));
        if (!complete) records += L" (without an end)";
        at = complete ? end + 2 : bytes.size();
    }
    return records;
}

CString headOfLastRecord() {
    return CString(lastHead);
}

void ask(const wchar_t* operation, const std::vector<Subject>& subjects,
         const std::function<CString()>& question) {
    CString line = operation;
    for (const Subject& subject : subjects)
        line += L" " + subject.text();
    line += L" -> " + answerTo(question);
    const CString records = newRecords();
    if (!records.IsEmpty()) line += L"; log: " + records;
    QVTerminalPrinter::mf_print(line + L"\n");
}

void askLines(const wchar_t* operation, const CString& subject, const std::function<CString()>& question) {
    std::wstring text;
    bool answered = false;
    ask(operation, {subject}, [&] {
        text = question().units();
        answered = true;
        return formatted(L"%d lines", static_cast<int>(linesOf(text).size()));
    });
    if (!answered) return;
    int number = 0;
    for (const std::wstring& line : linesOf(text))
        ask(operation, {subject, ++number}, [&] { return shown(CString(line)); });
}

}  // namespace conformance
