#include "runtime/host/description/operation_names.h"
#include "runtime/host/description/section.h"
#include "runtime/host/letter_case.h"
#include "runtime/host/utf.h"

/// [failures].

namespace description {

namespace {

constexpr const char* outcomes = ", expected \"error CATEGORY [CODE] [TEXT]\", \"answer 0\" or \"foreign\"";

/// The place of the ":" that parts the call from what becomes of it: outside quotes, and none of a "::".
std::size_t separatorOf(std::wstring_view text) {
    bool inQuotes = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'"') inQuotes = !inQuotes;
        if (inQuotes || text[at] != L':') continue;
        if (!text.substr(at).starts_with(L"::")) return at;
        ++at;
    }
    return std::wstring_view::npos;
}

/// The error value of a category.
std::optional<std::uint32_t> categoryOf(std::wstring_view name) {
    static constexpr std::wstring_view names[] = {L"Unknown", L"System",         L"Memory",
                                                  L"Path",    L"BufferTooSmall", L"Unspecific"};
    std::uint32_t value = 1;
    for (const std::wstring_view known : names) {
        if (host::equalIgnoringCase(name, known)) return value;
        ++value;
    }
    return std::nullopt;
}

std::string closestNames(std::wstring_view name) {
    const std::size_t scope = name.find(L"::");
    std::string names;
    for (const OperationName& operation : operationNames()) {
        const bool sameClass =
            scope != std::wstring_view::npos && operation.name.starts_with(name.substr(0, scope + 2));
        if (sameClass || (scope == std::wstring_view::npos && operation.ofSystem)) {
            names += (names.empty() ? "" : ", ") + host::toUtf8(operation.name);
        }
    }
    return names.empty() ? "CLASS::OPERATION as the classes name it" : names;
}

/// "call 2", "from call 2", nothing.
bool readCalls(Scanner& scanner, PlannedFailure& failure) {
    if (scanner.atEnd()) return true;
    const bool onwards = scanner.take(L"from");
    if (!scanner.take(L"call")) return false;
    const auto number = numberOf(scanner.word());
    if (!number || *number == 0 || !scanner.atEnd()) return false;
    failure.first = *number;
    if (!onwards) failure.last = *number;
    return true;
}

/// 'OPERATION ["SUBJECT"] [call N | from call N]'.
const OperationName* readCall(Parsing& parsing, const Item& item, std::wstring_view text,
                              PlannedFailure& failure) {
    Scanner scanner(text);
    failure.operation = scanner.word();
    const OperationName* operation = operationNamed(failure.operation);
    if (operation == nullptr) {
        parsing.mistakes.add(item.place, "there is no operation " + quoted(failure.operation) +
                                             ", expected " + closestNames(failure.operation));
        return nullptr;
    }
    if (scanner.rest().starts_with(L'"')) {
        const auto subject = scanner.quotedText();
        if (!subject) {
            parsing.mistakes.add(item.place, "a quote without its end");
            return nullptr;
        }
        failure.subject = host::folded(*subject);
    }
    if (readCalls(scanner, failure)) return operation;
    parsing.mistakes.add(item.place, quoted(scanner.rest()) +
                                         " tells no call, expected \"call N\" or \"from call N\" "
                                         "with N from 1");
    return nullptr;
}

bool readError(Scanner& scanner, host::Verdict& outcome) {
    const auto category = categoryOf(scanner.word());
    if (!category) return false;
    outcome.kind = host::Verdict::Kind::fail;
    outcome.category = *category;
    if (const auto code = codeOf(scanner.nextWord())) {
        outcome.code = *code;
        scanner.word();
    }
    if (const auto text = scanner.quotedText()) outcome.text = *text;
    return scanner.atEnd();
}

bool readGrowth(Scanner& scanner, host::Verdict& outcome) {
    constexpr std::uint64_t longest = 0xFFFFFFFFU;  // lengths included for which there is no memory
    const auto characters = numberOf(scanner.rest(), longest);
    if (!characters || *characters < 2) return false;
    outcome.kind = host::Verdict::Kind::grow;
    outcome.characters = static_cast<std::uint32_t>(*characters);
    return true;
}

bool readOutcome(std::wstring_view text, const OperationName& operation, host::Verdict& outcome) {
    Scanner scanner(text);
    if (scanner.take(L"error")) return readError(scanner, outcome);
    if (scanner.take(L"grows")) return operation.mayGrow && readGrowth(scanner, outcome);
    if (scanner.take(L"foreign")) {
        outcome.kind = host::Verdict::Kind::throwForeign;
        return scanner.atEnd();
    }
    outcome.kind = host::Verdict::Kind::answerZero;
    return scanner.take(L"answer") && scanner.rest() == L"0";
}

void parseFailure(Parsing& parsing, const Item& item) {
    const std::size_t separator = separatorOf(item.text);
    if (separator == std::wstring_view::npos) {
        parsing.mistakes.add(item.place, quoted(item.text) + " has no \":\", expected OPERATION : OUTCOME");
        return;
    }
    PlannedFailure failure;
    const OperationName* operation = readCall(parsing, item, item.text.substr(0, separator), failure);
    if (operation == nullptr) return;
    const std::wstring_view outcome = trimmed(item.text.substr(separator + 1));
    if (!readOutcome(outcome, *operation, failure.outcome)) {
        parsing.mistakes.add(item.place, quoted(outcome) + " is no outcome" + outcomes +
                                             (operation->mayGrow ? " or \"grows CHARACTERS\"" : ""));
        return;
    }
    if (operation->zeroIsSuccess && failure.outcome.kind == host::Verdict::Kind::answerZero) {
        parsing.mistakes.add(item.place,
                             "0 is the success of " + host::toUtf8(operation->name) + ", expected an error");
        return;
    }
    parsing.machine.failures.push_back(std::move(failure));
}

}  // namespace

void parseFailures(Parsing& parsing, const Section& section) {
    forEachItem(section, [&](const Item& item) { parseFailure(parsing, item); });
}

}  // namespace description
