/// Any text as a description: nothing crashes or hangs, whatever is asked of the machine that comes out.

#include <cstddef>
#include <cstdint>
#include <string>

#include "runtime/host/description/state.h"
#include "runtime/host/host.h"

namespace {

/// Asks every question once, with names that the description itself may hold.
void askEverything(const std::wstring& name) {
    host::system();
    host::adapters();
    host::volumes();
    host::cluster();
    host::service(name);
    host::membership();
    host::domainController(name, true, false);
    host::registryKey(name);
    host::registryValue(L"a", name);
    host::fileKind(L"C:\\" + name);
    host::fileContents(L"C:\\" + name, 1000);
    host::fileVersion(L"C:\\" + name);
    host::absolutePath(name);
    for (const host::Account& account : host::users({}, 0).value.items) {
        host::localGroupsOf({}, account);
        host::accountOfSid(account.sid);
    }
    host::localGroups({}, 0);
    host::accountOfName(name);
    host::verdictOn(L"QVPath::mf_exists", name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const description::Mistakes mistakes = description::loadText(text);
    if (mistakes.any() == mistakes.report().empty()) __builtin_trap();
    askEverything(L"a");
    askEverything(L"..\\a/b");
    return 0;
}
