#pragma once

/// The few functions of the operating system and of the C run time that the checker calls by itself: Windows
/// directory, deletion of a file, user name, membership of the administrators, last error, and the stream
/// functions of the report file. On Windows they are the system's own; elsewhere the described machine
/// answers them with the same contract. This is the only way to <windows.h> outside `host/windows`.

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdio>
#include <cwchar>
#else
#include "runtime/host/described/os_functions.h"
#endif
