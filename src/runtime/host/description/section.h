#pragma once

/// The sections of a description, and what their parsers share.

#include <functional>
#include <string>
#include <vector>

#include "runtime/host/description/mistakes.h"
#include "runtime/host/description/scanner.h"
#include "runtime/host/description/source.h"

namespace description {

struct SectionLine {
    std::size_t number = 0;
    std::wstring_view text;  ///< as it stands, with its blanks and comments
};

struct Section {
    std::wstring name;      ///< folded: "domain users"
    std::wstring argument;  ///< what follows the name inside the brackets
    std::string file;
    std::size_t line = 0;  ///< of the heading
    std::vector<SectionLine> lines;
};

/// What the parser of a section works on.
struct Parsing {
    const SourceFiles& files;
    Machine& machine;
    Mistakes& mistakes;
    int depth = 0;        ///< how many descriptions stand on the one being read
    bool atStart = true;  ///< nothing of its file has been read yet
};

/// One line of a section without comment and surrounding blanks.
struct Item {
    std::wstring_view text;
    Place place;
};

/// Hands every line that is neither blank nor a comment to `take`. A comment begins with "#" at the start of
/// a line or behind two blanks; quotes protect it.
void forEachItem(const Section& section, const std::function<void(const Item&)>& take);

/// "key = value".
struct Setting {
    std::wstring key;  ///< folded
    std::wstring_view name;
    std::wstring_view value;
};

/// Splits at the first "="; without one, a mistake that shows the `example`, and nothing.
std::optional<Setting> settingOf(const Item& item, Mistakes& mistakes, const char* example);

/// "! refused WHAT", "! error 3 WHAT": a natural cause. `isCause` tells whether the line is one at all.
struct CauseLine {
    Cause cause;
    std::wstring_view what;
};
bool isCause(const Item& item);
std::optional<CauseLine> causeLineOf(const Item& item, Mistakes& mistakes);

/// The `NAME` of "- NAME"; nothing for other lines.
std::optional<std::wstring_view> removedName(const Item& item);

// The parsers of sections that are more than settings.
void parseEnvironment(Parsing& parsing, const Section& section);
void parseUsers(Parsing& parsing, const Section& section, UserList& list);
void parseGroups(Parsing& parsing, const Section& section, GroupList& list);
void parseVolumes(Parsing& parsing, const Section& section);
void parseCluster(Parsing& parsing, const Section& section);
void parseServices(Parsing& parsing, const Section& section);
void parseRegistry(Parsing& parsing, const Section& section);
void parseFiles(Parsing& parsing, const Section& section);
void parseContents(Parsing& parsing, const Section& section);
void parseVersions(Parsing& parsing, const Section& section);
void parseFailures(Parsing& parsing, const Section& section);

}  // namespace description
