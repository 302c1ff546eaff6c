/// The English catalog. A page is laid out by these texts together: a title is led by an empty line and
/// stands at the margin, headings are indented by two blanks, values by four. Sentences end in CR LF, list
/// items in LF. A text that the program puts into another one, or ends itself, has no line end of its own.

#include "catalog/catalog.h"

namespace catalog {

namespace {

constexpr MessageText english[] = {
    {3034, L"The program could not be shut down cleanly.\r\n"},
    {3044, L"    This computer is not joined to a domain.\r\n"},
    {3089, L"Failures are recorded in the trace log %s, where it can be written.\r\n"},
    {3182, L"    %s\n        The SID of this user cannot be shown:\n        %s\n"},
    {3244,
     L"    Whether this API version is supported could not be checked:\r\n        %s\r\n    Supported versions: %s. See the trace log.\r\n"},
    {3245, L"\r\nMigration filters:\r\n%s"},
    {3246, L"  The file attribute filter is not set. Missing registry value:\r\n    %s\r\n    in key %s\r\n"},
    {3247,
     L"  The file attribute filter could not be read. Registry value:\r\n    %s\r\n    in key %s\r\n    %s\r\n"},
    {3248, L"  File attribute filter (x = the attribute is part of the filter):\n"},
    {3249, L"       %8.8x all bits of the filter\n"},
    {3250,
     L"The version is unknown (see the trace log): the registry could not be asked\r\n    for the value\r\n"},
    {3251,
     L"The version is unknown (see the trace log): the registry value could not be\r\n    read:\r\n    %s\\%s"},
    {3252, L"The version is unknown: the registry value is missing:\r\n    %s\\%s"},
    {3253, L"\r\nCluster:\r\n%s"},
    {3254, L"kvxinfo - HSM client installation check\r\nVersion %u, Release %u, Level %u.%u (%s)"},
    {3255, L"\r\nCurrent user:\r\n%s"},
    {3256, L"    default quota\n        Quota: %s"},
    {3257, L"\r\nVolumes:\r\n%s"},
    {3258, L"    Access to the domain controller could not be ended:\r\n    %s\r\n"},
    {3259, L"    Access to the domain controller could not be started:\r\n    %s\r\n"},
    {3260, L"\r\nWindows domain:\r\n"},
    {3261, L"    Domain:                    %s\r\n"},
    {3262, L"\r\nDomain-local groups:\r\n"},
    {3263, L"\r\nDomain users:\r\n"},
    {3264, L"\r\nUsers and their groups:\r\n"},
    {3265, L"  Domain users:"},
    {3266, L"\r\nFile-system filter driver version:\r\n"},
    {3268, L"unknown SID"},
    {3270,
     L"    The storage service was not started; no volumes can be listed.\r\n    See the trace log.\r\n"},
    {3271,
     L"\r\nThe option \"errors\" runs every report by itself and cannot be combined with\r\nkeywords. Nothing was examined.\r\n"},
    {3272, L"    The local users could not be listed. See the trace log.\r\n"},
    {3273, L"unknown (the registry value cannot be read)"},
    {3274, L"    The domain users could not be listed. See the trace log.\r\n"},
    {3276, L"The driver version could not be determined. See the trace log."},
    {3277, L"    Access to the domain controller could not be started:\r\n    %s\r\n"},
    {3278, L"    The name of the domain could not be determined:\r\n    %s\r\n"},
    {3279, L"        The groups of this user could not be listed. See the trace log.\n"},
    {3280, L"\r\n    Access to the domain controller could not be ended:\r\n    %s"},
    {3283, L"  Read from the registry value:\n"},
    {3285, L"      is a member of:\n"},
    {3286, L"\r\nLog levels of the graphical user interface (kvxgui):\r\n%s"},
    {3287, L"\r\nHSM client version:\r\n"},
    {3288, L"\r\nLog levels of this program (kvxinfo):\r\n%s"},
    {3289,
     L"    The installation directory is unknown: the registry does not tell where the\r\n    HSM client is installed. Repair the installation.\r\n"},
    {3290, L"\r\nInstalled files:\r\n%s"},
    {3291, L"    %s found, %s missing\n"},
    {3292, L"\r\nInstallation directory:\r\n%s\r\n"},
    {3294, L"\r\nSystem information:\r\n%s\r\n"},
    {3295, L"    Whether this computer is joined to a domain could not be determined:\r\n    %s\r\n"},
    {3296, L"\r\nLocal groups:\r\n"},
    {3297, L"    %c D  details\n"},
    {3298, L"    %c X  extended records\n"},
    {3299, L"    %c E  errors\n"},
    {3300, L"    %c C  calls\n"},
    {3301, L"    %c F  functions\n"},
    {3302, L"    %c I  information\n"},
    {3303, L"    %c L  lists\n"},
    {3304, L"    %c S  severe errors\n"},
    {3305, L"    %c T  trace of operations\n"},
    {3306, L"    %c W  warnings\n"},
    {3307, L"    The log level could not be asked for. See the trace log. Registry value:\r\n    %s\\%s\r\n"},
    {3308, L"\r\nLog levels of the command line client (kvxclc):\r\n%s"},
    {3309, L"    No log level is set for %s; it uses its default. Missing value:\r\n    %s\\%s\r\n"},
    {3310, L"    The log level of %s could not be read. See the trace log. Value:\r\n    %s\\%s\r\n"},
    {3311, L"\r\nLocal users:\r\n"},
    {3313,
     L"  The registry could not be asked for the minimum file size. Registry value:\r\n    %s\r\n    in key %s\r\n    %s\r\n"},
    {3314, L"\n  Minimum file size:\n    %u\n"},
    {3315, L"  The minimum file size is not set. Missing registry value:\r\n    %s\r\n    in key %s\r\n"},
    {3316,
     L"  The minimum file size could not be read. Registry value:\r\n    %s\r\n    in key %s\r\n    %s\r\n"},
    {3317, L"  Read from the registry value:\n    %s\\%s\n"},
    {3319, L"    missing    %s\n"},
    {3320, L"    unknown    %s\n"},
    {3322, L"\n  Volumes that are not formatted with NTFS (none when nothing is listed):\n%s"},
    {3323, L"    This computer is not joined to a domain.\r\n"},
    {3324, L"\r\nWindows version:\r\n%s"},
    {3325, L"\r\nThe report was saved in the file %s.\r\n"},
    {3326, L"\r\nThe report could not be saved in the file %s.\r\nSee the trace log.\r\n"},
    {3327, L"    The quota file could not be read:\r\n    %s"},
    {3328, L"    The name of the primary domain controller could not be determined:\r\n    %s\r\n"},
    {3329, L"    Primary domain controller: %s\r\n"},
    {3330, L"    found      %s\n"},
    {3332, L"\r\nDefined quotas:\r\n"},
    {3333, L"    %s%.0s %s\n        SID:   %s\n        Quota: %s"},
    {3334, L"  Quota file:\r\n    %s\r\n"},
    {3335,
     L"  The registry could not be asked for the file attribute filter. Registry\r\n  value:\r\n    %s\r\n    in key %s\r\n    %s\r\n"},
    {3336, L"no version found in the registry"},
    {3337, L"    This API version is not supported. Supported: %s\r\n"},
    {3338, L"\r\nQuotas of all users:\r\n"},
    {3339, L"\r\nLog levels of the HSM service (kvxsvc):\r\n%s"},
    {3341, L"    Backup client: %s\r\n    Backup API:    %s\r\n"},
    {3342, L"\r\nPelmora backup client and API versions:\r\n%s"},
    {3343, L"    The quota file could not be read: unknown failure. See the trace log."},
    {3344, L"(unknown)"},
    {3345, L"(unknown user)"},
    {3348,
     L"\r\n"
     L"Usage: kvxinfo [save] keyword...\r\n"
     L"       kvxinfo [save] errors\r\n"
     L"\r\n"
     L"Keywords, in capital or small letters:\r\n"
     L"    help        this text\r\n"
     L"    all         every report below, but not domusers, domgroups, domusergr\r\n"
     L"    installdir  installation directory of the HSM client\r\n"
     L"    files       presence of every file of the installation\r\n"
     L"    clclog      log levels of the command line client\r\n"
     L"    guilog      log levels of the graphical user interface\r\n"
     L"    infolog     log levels of this program\r\n"
     L"    servicelog  log levels of the HSM service\r\n"
     L"    filter      migration filters\r\n"
     L"    allquota    quota of every local and domain user\r\n"
     L"    quota       quotas defined in the quota file\r\n"
     L"    locusers    local users\r\n"
     L"    domusers    users of the domain (can be long)\r\n"
     L"    locgroups   local groups\r\n"
     L"    domgroups   domain-local groups (can be long)\r\n"
     L"    locusergr   local users and their groups\r\n"
     L"    domusergr   users of the domain and their groups (can be long)\r\n"
     L"    pelmora     versions of backup client and backup API\r\n"
     L"    ip          system information, IP addresses\r\n"
     L"    win         Windows version\r\n"
     L"    wincp       Windows code page\r\n"
     L"    disk        volumes and their file systems\r\n"
     L"    cluster     cluster state\r\n"
     L"    user        current user and administrator rights\r\n"
     L"    version     HSM client version\r\n"
     L"    driver      version of the file-system filter driver\r\n"
     L"    domain      Windows domain and domain controller\r\n"
     L"\r\n"
     L"Options, all in capital or all in small letters:\r\n"
     L"    errors      run every report of \"all\", show only those that found a problem\r\n"
     L"    save        also write the reports to check_installation.txt in the current\r\n"
     L"                directory\r\n"
     L"\r\n"
     L"Every start, also one without arguments, removes an old check_installation.txt\r\n"
     L"from the current directory. Failures are recorded in %s there.\r\n"},
    {3349, L"\r\nUnknown keyword: %s\r\nThe keyword \"help\" lists all keywords.\r\n"},
    {3351, L"    %s\n"},
    {3352, L"    %s\r\n    is a member of the administrators group.\r\n"},
    {3353, L"  Local users:"},
    {3354,
     L"    %s\r\n    is not a member of the administrators group. Run this program as an\r\n    administrator: without these rights reports can be incomplete.\r\n"},
    {3357, L"\r\nWindows code page:\r\n%s"},
    {3461, L"    The quotas could not be prepared:\r\n    %s"},
    {3490, L"        The groups of this user could not be listed. See the trace log.\n"},
    {3491, L"        The groups of this user could not be listed:\n        %s\n\n"},
    {3492, L"    The list could not be retrieved. See the trace log.\r\n"},
    {3493, L"    The domain-local groups could not be listed:\r\n    %s\r\n"},
    {3494, L"    The users could not be listed. See the trace log.\r\n"},
    {3495, L"    The local users could not be listed:\r\n    %s"},
    {3496, L"    The local users could not be listed: unknown failure. See the trace log."},
    {3497, L"    %s\n        The quota of this user could not be determined:\n        %s\n"},
    {3502, L"\r\nThe program ended early because of an error:\r\n    %s\r\n"},
    {3503, L"\r\nThe program ended early because of an unknown error.\r\n"},
    {3552, L"The storage service could not be started; volumes cannot be reported:\r\n    %s\r\n"},
    {3553, L"The storage service could not be started (unknown error); volumes cannot be\r\nreported.\r\n"},
    {3622, L"    %s (%s): %s\n"},
};

static_assert(isComplete(english));

}  // namespace

const Catalog& linked() {
    static constexpr Catalog catalog{english, messageCount};
    return catalog;
}

}  // namespace catalog
