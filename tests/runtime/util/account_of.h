#pragma once

#include "runtime/host/facts.h"
#include "runtime/host/sid_text.h"
#include "runtime/util/QVSid.h"

/// An account with the SID that a text tells; without a text, one without SID.
inline host::Account accountOf(const wchar_t* domain, const wchar_t* name, const wchar_t* sid = L"") {
    return {domain, name, host::sidOf(sid).value_or(host::Sid())};
}
