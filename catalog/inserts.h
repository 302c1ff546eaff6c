#pragma once

/// Every message identifier of the product that this program shows, with the kinds of its inserts in their
/// order: 's' a text, 'u' an unsigned 32-bit number, 'c' a single character. A catalog in any language is
/// checked against this table when it is compiled, and so is every place that builds a message.

namespace catalog {

struct MessageInserts {
    unsigned int id;
    const char* kinds;
};

inline constexpr MessageInserts messages[] = {
    {3034, ""},       // tear-down failed
    {3044, ""},       // not joined to a domain
    {3089, "s"},      // closing pointer to the trace log: its name
    {3182, "ss"},     // quota entry without SID: full name, error
    {3244, "ss"},     // API support unknown: API version, required range
    {3245, "s"},      // title of "filter"
    {3246, "ss"},     // attribute filter missing: value, key
    {3247, "sss"},    // attribute filter unreadable: value, key, error
    {3248, ""},       // heading of the attribute table
    {3249, "u"},      // the whole attribute mask
    {3250, ""},       // client version: the registry cannot be asked
    {3251, "ss"},     // client version unreadable: key, value
    {3252, "ss"},     // client version missing: key, value
    {3253, "s"},      // title of "cluster"
    {3254, "uuuus"},  // banner: version, release, level, sub-level, year
    {3255, "s"},      // title of "user"
    {3256, "s"},      // default quota
    {3257, "s"},      // title of "disk"
    {3258, "s"},      // domain controller cannot be stopped: error
    {3259, "s"},      // domain controller cannot be started: error
    {3260, ""},       // title of "domain"
    {3261, "s"},      // domain name
    {3262, ""},       // title of "domgroups"
    {3263, ""},       // title of "domusers"
    {3264, ""},       // title of "locusergr" and "domusergr"
    {3265, ""},       // heading of the domain users of "allquota"
    {3266, ""},       // title of "driver"
    {3268, ""},       // stands for a group's SID that cannot be shown
    {3270, ""},       // storage not initialised
    {3271, ""},       // "errors" combined with other arguments
    {3272, ""},       // local users cannot be listed
    {3273, ""},       // stands for a version that cannot be read
    {3274, ""},       // domain users cannot be listed
    {3276, ""},       // driver version cannot be determined
    {3277, "s"},      // domain controller cannot be started: error
    {3278, "s"},      // domain name cannot be retrieved: error
    {3279, ""},       // groups of a domain user cannot be retrieved
    {3280, "s"},      // domain controller cannot be stopped: error
    {3283, ""},       // where the attribute filter was read
    {3285, ""},       // heading of a user's groups
    {3286, "s"},      // title of "guilog"
    {3287, ""},       // title of "version"
    {3288, "s"},      // title of "infolog"
    {3289, ""},       // installation directory unknown
    {3290, "s"},      // title of "files"
    {3291, "ss"},     // counts of one package: found, missing
    {3292, "s"},      // title of "installdir"
    {3294, "s"},      // title of "ip"
    {3295, "s"},      // membership cannot be checked: error
    {3296, ""},       // title of "locgroups"
    {3297, "c"},      // level D
    {3298, "c"},      // level X
    {3299, "c"},      // level E
    {3300, "c"},      // level C
    {3301, "c"},      // level F
    {3302, "c"},      // level I
    {3303, "c"},      // level L
    {3304, "c"},      // level S
    {3305, "c"},      // level T
    {3306, "c"},      // level W
    {3307, "ss"},     // log level: the registry cannot be asked: key, value
    {3308, "s"},      // title of "clclog"
    {3309, "sss"},    // log level missing: program, key, value
    {3310, "sss"},    // log level unreadable: program, key, value
    {3311, ""},       // title of "locusers"
    {3313, "sss"},    // minimum size: the registry cannot be asked: value, key, error
    {3314, "u"},      // minimum size
    {3315, "ss"},     // minimum size missing: value, key
    {3316, "sss"},    // minimum size unreadable: value, key, error
    {3317, "ss"},     // where the minimum size was read: key, value
    {3319, "s"},      // a missing file
    {3320, "s"},      // a file that cannot be checked
    {3322, "s"},      // closing block of "disk": the volumes that are not NTFS
    {3323, ""},       // no domain users: not joined
    {3324, "s"},      // title of "win"
    {3325, "s"},      // report saved: file name
    {3326, "s"},      // report not saved: file name
    {3327, "s"},      // quota file cannot be parsed: error
    {3328, "s"},      // controller's name cannot be retrieved: error
    {3329, "s"},      // controller's name
    {3330, "s"},      // a found file
    {3332, ""},       // title of "quota"
    {3333, "sssss"},  // one defined quota: kind, kind, full name, SID, quota
    {3334, "s"},      // path of the quota file
    {3335, "sss"},    // attribute filter: the registry cannot be asked: value, key, error
    {3336, ""},       // stands for a version that is missing
    {3337, "s"},      // API not supported: required range
    {3338, ""},       // title of "allquota"
    {3339, "s"},      // title of "servicelog"
    {3341, "ss"},     // versions of backup client and API
    {3342, "s"},      // title of "pelmora"
    {3343, ""},       // quota file: unknown failure
    {3344, ""},       // stands for a quota file path that is not known yet
    {3345, ""},       // stands for a user name that cannot be determined
    {3348, "s"},      // usage: name of the trace log
    {3349, "s"},      // unknown keyword
    {3351, "s"},      // a user whose groups follow: full name
    {3352, "s"},      // current user, an administrator
    {3353, ""},       // heading of the local users of "allquota"
    {3354, "s"},      // current user, no administrator
    {3357, "s"},      // title of "wincp"
    {3461, "s"},      // quotas cannot be prepared: error
    {3490, ""},       // groups of a local user cannot be listed
    {3491, "s"},      // groups of a local user cannot be retrieved: error
    {3492, ""},       // accounts cannot be listed
    {3493, "s"},      // domain-local groups cannot be listed: error
    {3494, ""},       // users cannot be listed
    {3495, "s"},      // local users cannot be listed: error
    {3496, ""},       // local users: unknown failure
    {3497, "ss"},     // quota of a user cannot be retrieved: full name, error
    {3502, "s"},      // the run failed: error
    {3503, ""},       // the run failed: unknown failure
    {3552, "s"},      // storage cannot be started: error
    {3553, ""},       // storage cannot be started: unknown failure
    {3622, "sss"},    // quota of a user: full name, SID, kind of rule
};

inline constexpr unsigned int messageCount = sizeof messages / sizeof messages[0];
static_assert(messageCount == 115);

/// The kinds of the inserts of `id`; null when there is no such message.
constexpr const char* insertsOf(unsigned int id) {
    for (const MessageInserts& message : messages) {
        if (message.id == id) return message.kinds;
    }
    return nullptr;
}

}  // namespace catalog
