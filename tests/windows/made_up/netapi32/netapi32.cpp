/// A made-up network library: it answers from the description of a machine (docs/machines.md), which the
/// environment variable KVX_MADE_UP_MACHINE names, laid out as the system lays it out. KVX_MADE_UP_QUIRKS may
/// name a file of quirks (quirks.h), KVX_MADE_UP_CALLS one for the counts of calls, written at the end.
///
/// What the system would forgive, though it costs time or memory, ends the process here.

#include "tests/windows/made_up/netapi32/call.h"
#include "tests/windows/made_up/netapi32/exports.h"
#include "tests/windows/made_up/netapi32/security.h"
#include "tests/windows/made_up/shared/imports.h"

long KvxOutstanding() {
    return made_up::piecesOut();
}

long KvxCalls(const char* name) {
    return made_up::callsOf(name);
}

NET_API_STATUS WINAPI KvxBufferFree(LPVOID buffer) {
    made_up::giveBack(buffer);
    return 0;
}

NET_API_STATUS WINAPI KvxBufferSize(LPVOID buffer, LPDWORD bytes) {
    *bytes = static_cast<DWORD>(made_up::sizeOf(buffer));
    return 0;
}

void WINAPI KvxRoleFree(PVOID buffer) {
    made_up::giveBack(buffer);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH && !made_up::variable(L"KVX_MADE_UP_MACHINE").empty()) {
        made_up::stayLoaded(library);
        made_up::replaceImports();
    }
    if (reason == DLL_PROCESS_DETACH) {
        for (long left = made_up::piecesOut(); left > 0; --left)
            made_up::count("not given back");
        made_up::writeCalls();
    }
    return TRUE;
}
