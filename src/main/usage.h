#pragma once

/// The name of the trace log.
inline constexpr const char* logFileName = "kvxinfo.log";

/// Prints the usage and sets `*usageShown` to 1.
void mf_implPrintUsage(unsigned int* usageShown);
