#include "runtime/base/QVSystem.h"

#include "runtime/base/QVErrno.h"
#include "runtime/base/fact_lines.h"
#include "runtime/base/natural_cause.h"
#include "runtime/base/operation.h"
#include "runtime/base/size_text.h"
#include "runtime/host/host.h"
#include "runtime/host/numbers.h"

namespace {

/// A fact that came without a text is unknown too.
CString known(const std::wstring& text) {
    return CString(text.empty() ? L"unknown" : text);
}

CString windowsName(const host::SystemFacts& facts) {
    const CString name = known(facts.windowsName);
    return facts.release.empty() ? name : name + L" " + CString(facts.release);
}

CString versionNumber(const host::SystemFacts& facts) {
    return CString(host::versionText({facts.major, facts.minor, facts.build, facts.revision}));
}

void addMembership(FactLines& lines) {
    const auto membership = host::membership();
    if (!membership.found()) {
        lines.add(L"Domain:", unknownFact(membership));
    } else {
        lines.add(membership.value.joined ? L"Domain:" : L"Workgroup:", CString(membership.value.domainName));
    }
}

void addHardware(FactLines& lines, const host::SystemFacts& facts) {
    CString processors = facts.processors != 0 ? formatted(L"%u", facts.processors) : CString(L"unknown");
    if (!facts.processorName.empty()) processors += formatted(L" (%s)", facts.processorName.c_str());
    lines.add(L"Processors:", processors);
    lines.add(L"Memory:", facts.memoryBytes != 0 ? sizeText(facts.memoryBytes) : CString(L"unknown"));
}

void addStart(FactLines& lines, const host::SystemFacts& facts) {
    if (!facts.startTime) return lines.add(L"Started:", L"unknown");
    const host::LocalTime& at = *facts.startTime;
    lines.add(L"Started:", formatted(L"%04d-%02d-%02d %02d:%02d:%02d", at.year, at.month, at.day, at.hour,
                                     at.minute, at.second));
}

void addAddresses(FactLines& lines) {
    const auto adapters = host::adapters();
    if (adapters.unanswered()) return lines.add(L"IP addresses:", unknownFact(adapters));
    bool any = false;
    for (const host::AdapterFacts& adapter : adapters.value) {
        for (const std::wstring& address : adapter.addresses) {
            lines.add(any ? L"" : L"IP addresses:",
                      formatted(L"%s (%s)", address.c_str(), adapter.name.c_str()));
            any = true;
        }
    }
    if (!any) lines.add(L"IP addresses:", L"none");
}

}  // namespace

const CString QVSystem::mf_toString(const CString& indent) {
    if (operation::answersZero(L"QVSystem::mf_toString")) return {};
    FactLines lines(indent, 17);
    const auto facts = host::system();
    if (facts.found()) {
        lines.add(L"Computer name:", known(facts.value.computerName));
        addMembership(lines);
        lines.add(L"Windows:", windowsName(facts.value));
        lines.add(L"Version:",
                  formatted(L"%s (%s)", versionNumber(facts.value), known(facts.value.architecture)));
        addHardware(lines, facts.value);
        addStart(lines, facts.value);
    } else {
        lines.add(L"System:", unknownFact(facts));
        addMembership(lines);
    }
    addAddresses(lines);
    return lines.text();
}

const CString QVSystem::mf_getSystemVersionString() {
    if (operation::answersZero(L"QVSystem::mf_getSystemVersionString")) return {};
    const auto facts = host::system();
    if (!facts.found()) return unknownFact(facts);
    return formatted(L"%s, version %s (%s)", windowsName(facts.value), versionNumber(facts.value),
                     known(facts.value.architecture));
}

int QVSystem::mf_isAtLeastW2003(unsigned short) {
    if (operation::answersZero(L"QVSystem::mf_isAtLeastW2003")) return 0;
    const auto facts = host::system();
    if (!facts.found()) {
        logNaturalCause(L"QVSystem::mf_isAtLeastW2003", facts, L"the system does not tell its version");
        return 0;
    }
    return facts.value.major > 5 || (facts.value.major == 5 && facts.value.minor >= 2) ? 1 : 0;
}

int QVSystem::mf_is32Bit() {
    if (operation::answersZero(L"QVSystem::mf_is32Bit")) return 0;
    const auto facts = host::system();
    if (!facts.found())
        logNaturalCause(L"QVSystem::mf_is32Bit", facts, L"the system does not tell its architecture");
    return facts.found() && facts.value.is32Bit ? 1 : 0;
}

const CString QVSystem::mf_getDefaultAnsiCodepage() {
    if (operation::answersZero(L"QVSystem::mf_getDefaultAnsiCodepage")) return {};
    const auto answer = host::ansiCodePage();
    if (!answer.found()) return unknownFact(answer);
    const CString number = formatted(L"%u", answer.value.number);
    return answer.value.name.empty() ? number : number + formatted(L" (%s)", answer.value.name.c_str());
}
