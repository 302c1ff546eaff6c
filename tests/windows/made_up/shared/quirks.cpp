#include "tests/windows/made_up/shared/quirks.h"

#include <cstdlib>
#include <limits>
#include <map>
#include <regex>
#include <vector>

#include "runtime/host/description/source.h"
#include "runtime/host/utf.h"
#include "tests/windows/made_up/shared/machine.h"

namespace made_up {

namespace {

struct Quirk {
    std::string function;
    unsigned long first = 1, last = std::numeric_limits<unsigned long>::max();
    bool untilRediscovery = false;
    Oddity oddity;
    unsigned long calls = 0;
    std::string line;
};

std::vector<Quirk> quirks;
std::map<std::string, long> calls;

unsigned long numberIn(const std::string& text) {
    return std::strtoul(text.c_str(), nullptr, 10);
}

bool readWhat(const std::string& what, Oddity& oddity) {
    std::smatch part;
    if (std::regex_match(what, part, std::regex("error (\\d+)"))) {
        oddity.error = numberIn(part[1]);
    } else if (std::regex_match(what, part, std::regex("state (\\d+)"))) {
        oddity.state = static_cast<int>(numberIn(part[1]));
    } else if (std::regex_match(what, part, std::regex("(\\d+) more records?"))) {
        oddity.moreRecords = numberIn(part[1]);
    } else {
        const std::map<std::string, bool Oddity::*> flags{
            {"null names", &Oddity::nullNames},     {"null buffer", &Oddity::nullBuffer},
            {"wrong total", &Oddity::wrongTotal},   {"empty page", &Oddity::emptyPage},
            {"stands still", &Oddity::standsStill}, {"goes round", &Oddity::goesRound},
            {"never ends", &Oddity::neverEnds}};
        const auto found = flags.find(what);
        if (found == flags.end()) return false;
        oddity.*found->second = true;
    }
    return true;
}

bool readQuirk(const std::string& line, Quirk& quirk) {
    static const std::regex form("(\\w+(?: indirect)?)( from)?(?: call (\\d+))?( until rediscovery)? : (.+)");
    std::smatch part;
    if (!std::regex_match(line, part, form) || (part[2].matched && !part[3].matched)) return false;
    quirk.line = line;
    quirk.function = part[1];
    if (part[3].matched) {
        quirk.first = numberIn(part[3]);
        if (!part[2].matched) quirk.last = quirk.first;
    }
    quirk.untilRediscovery = part[4].matched;
    return readWhat(part[5], quirk.oddity);
}

void add(Oddity& all, const Oddity& one) {
    if (all.error == ERROR_SUCCESS) all.error = one.error;
    if (all.state < 0) all.state = one.state;
    all.nullNames |= one.nullNames;
    all.nullBuffer |= one.nullBuffer;
    all.wrongTotal |= one.wrongTotal;
    all.emptyPage |= one.emptyPage;
    all.standsStill |= one.standsStill;
    all.goesRound |= one.goesRound;
    all.neverEnds |= one.neverEnds;
    all.moreRecords += one.moreRecords;
}

}  // namespace

void readQuirks(const std::wstring& file) {
    quirks.clear();
    if (file.empty()) return;
    std::string why;
    const auto bytes = description::RealFiles().read(host::toUtf8(file), why);
    if (!bytes) endProcess("the quirks cannot be read: " + why + "\n");
    for (const std::wstring& line : description::linesOf(*bytes)) {
        const std::string text = host::toUtf8(line);
        if (text.empty()) continue;
        Quirk quirk;
        if (!readQuirk(text, quirk)) endProcess("'" + text + "' is no quirk\n");
        quirks.push_back(std::move(quirk));
    }
}

Oddity oddityOf(const std::string& function, bool isRemote) {
    // Which quirks there are may have changed.
    machine();
    count(function);
    if (isRemote) count("remote");
    Oddity all;
    for (Quirk& quirk : quirks) {
        if (quirk.function != function && !(isRemote && quirk.function == "remote")) continue;
        ++quirk.calls;
        if (quirk.calls < quirk.first || quirk.calls > quirk.last) continue;
        add(all, quirk.oddity);
        count("met: " + quirk.line);
    }
    return all;
}

void count(const std::string& name) {
    ++calls[name];
}

void discount(const std::string& name) {
    --calls[name];
}

void controllerIsSearchedAnew() {
    std::erase_if(quirks, [](const Quirk& quirk) { return quirk.untilRediscovery; });
}

long callsOf(const std::string& name) {
    const auto found = calls.find(name);
    return found == calls.end() ? 0 : found->second;
}

void writeCalls() {
    const std::wstring name = variable(L"KVX_MADE_UP_CALLS");
    if (name.empty()) return;
    std::string text;
    for (const auto& [function, number] : calls)
        text += function + " " + std::to_string(number) + "\n";
    const HANDLE file = CreateFileW(name.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) endProcess("the counts of calls cannot be written\n");
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

}  // namespace made_up
