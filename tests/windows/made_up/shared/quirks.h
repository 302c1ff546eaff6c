#pragma once

/// What a healthy machine would not answer: the quirks of the stand-in libraries, and the counts of their
/// calls.
///
/// The file that KVX_MADE_UP_QUIRKS names has one quirk a line:
///
///     FUNCTION [call N | from call N] [until rediscovery] : WHAT
///
/// FUNCTION is one of the system ("NetLocalGroupEnum"), "NetUserGetLocalGroups indirect" for its calls with
/// LG_INCLUDE_INDIRECT, or "remote": every call that would go to another computer, but for the search for a
/// controller. Calls count from 1; "until rediscovery" is until a controller is searched for anew. WHAT is
///
///     error CODE       the call fails
///     state NUMBER     the state that a call tells, whatever the machine is described as
///     null names       every record is without its name or SID
///     null buffer      records are counted, and there are none
///     N more records   as many are counted, and are there, that hold nothing
///     wrong total      the total is 0
///     empty page       no record, and "more data"
///     stands still     "more data", and the next page is this one again
///     goes round       behind the last page comes the first
///     never ends       "more data", and every further page is like this one

#include <string>

#include "runtime/host/os.h"

namespace made_up {

/// What is odd about one call.
struct Oddity {
    DWORD error = ERROR_SUCCESS;
    int state = -1;
    bool nullNames = false, nullBuffer = false, wrongTotal = false;
    bool emptyPage = false, standsStill = false, goesRound = false, neverEnds = false;
    DWORD moreRecords = 0;
};

/// Reads the quirks of a file in place of those of before; none for an empty name. A line that is no quirk
/// ends the process (`endProcess`).
void readQuirks(const std::wstring& file);

/// Counts a call under `function` and, for one that would go to another computer, under "remote"; tells what
/// is odd about it.
Oddity oddityOf(const std::string& function, bool isRemote);

/// Counts without a question for quirks.
void count(const std::string& name);

/// Ends the quirks that last until then.
void controllerIsSearchedAnew();

/// How often `count` and `oddityOf` counted a name.
long callsOf(const std::string& name);

/// Takes one away of what `count` counted.
void discount(const std::string& name);

/// Appends all counts to the file that KVX_MADE_UP_CALLS names, "NAME N" a line.
void writeCalls();

}  // namespace made_up
