/// Every setting of every section that has a table of them: a good value, a bad one, the mistake that lists
/// all names, and what the documentation says.

#include "runtime/host/description/settings.h"

#include <cctype>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "tests/project_folder.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using description::SettingSection;
using description::SettingTable;
using host::toUtf8;

struct Values {
    std::string good;
    std::string bad;  ///< empty: every value is good
};

/// By section and name. The files are those of `Files`.
const std::map<std::string, std::map<std::string, Values>> values = {
    {"machine",
     {
         {"base", {"sample", "nowhere.txt"}},
         {"registry", {"export.reg", "nowhere.reg"}},
         {"files", {"list.txt", "nowhere.txt"}},
     }},
    {"system",
     {
         {"computer", {"WS01", ""}},
         {"windows", {"Windows 11 Pro", ""}},
         {"release", {"23H2", ""}},
         {"version", {"10.0.22631.4460", "eleven"}},
         {"server", {"yes", "perhaps"}},
         {"architecture", {"arm64", "vax"}},
         {"32bit", {"no", "32"}},
         {"processor", {"Intel(R) Core(TM) i7-1365U", ""}},
         {"processors", {"12", "1000001"}},
         {"memory", {"16 GB", "16 GX"}},
         {"started", {"2026-11-19 07:30:00", "2026-11-19"}},
         {"now", {"2026-11-20 08:15:00.250 +01:00", "2026-11-20 08:15:00 +01"}},
         {"windows directory", {"D:\\WINNT", "WINNT"}},
         {"current directory", {"C:\\Users\\alice", "alice"}},
         {"code page", {"1252 ANSI - Latin I", "65536 too high"}},
         {"sid", {"S-1-5-21-1-2-3", "S-1"}},
         {"adapter", {"Ethernet: 192.0.2.10, fe80::1", "Ethernet"}},
     }},
    {"user",
     {
         {"name", {"WS01\\alice", "WS01\\"}},
         {"administrator", {"yes", "1"}},
     }},
    {"domain",
     {
         {"joined", {"yes", "joined"}},
         {"name", {"CORP", ""}},
         {"workgroup", {"WORKGROUP", ""}},
         {"dns", {"corp.example", ""}},
         {"controller", {"DC01", ""}},
         {"primary", {"DC01", ""}},
         {"role", {"controller", "king"}},
         {"sid", {"S-1-5-21-4-5-6", "4-5-6"}},
         {"reachable", {"no 1722", "no more"}},
         {"page size", {"100", "0"}},
         {"member page size", {"1000", "1000001"}},
         {"generate users", {"3 user%05d", "3 user"}},
     }},
    {"cluster",
     {
         {"name", {"FSCLUSTER", ""}},
         {"node", {"NODE1 up", "NODE1"}},
         {"group", {"Cluster Group owner NODE1 partly online", "Cluster Group"}},
     }},
};

/// The description, an export and a list of files beside it, and the embedded sample.
class Files : public description::RealFiles {
public:
    explicit Files(std::string text) : m_text(std::move(text)) {}

    std::optional<std::string> read(const std::string& name, std::string& why) const override {
        if (name == "machine.txt") return m_text;
        if (name == "export.reg") return "REGEDIT4\n[HKEY_LOCAL_MACHINE\\A]\n";
        if (name == "list.txt") return "C:\\a.txt\n";
        return RealFiles::read(name, why);
    }

private:
    std::string m_text;
};

class Settings : public DescribedMachine {
protected:
    static std::string mistakesIn(const SettingSection& section, const std::string& line) {
        const std::string text = "[" + toUtf8(section.name) + "]\n" + line + "\n";
        return description::load(Files(text), "machine.txt").report();
    }
};

/// As somebody may write a name: with capitals.
std::string shouted(std::string name) {
    for (char& letter : name)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return name;
}

std::set<std::string> settingNames(const SettingTable& table) {
    std::set<std::string> names;
    for (const description::SettingRow& row : table.rows)
        names.insert(toUtf8(row.name));
    return names;
}

std::set<std::string> causeNames(const SettingTable& table) {
    std::set<std::string> names;
    for (const description::CauseRow& row : table.causes)
        names.insert(toUtf8(row.name));
    return names;
}

}  // namespace

TEST_F(Settings, TheTablesAreThoseOfThisTest) {
    std::map<std::string, std::set<std::string>> tested, known;
    for (const auto& [section, rows] : values) {
        for (const auto& row : rows)
            tested[section].insert(row.first);
    }
    for (const SettingSection& section : description::settingSections()) {
        known[toUtf8(section.name)] = settingNames(section.table);
        EXPECT_EQ(section.table.rows.size(), settingNames(section.table).size()) << "a name stands twice";
    }
    EXPECT_EQ(known, tested);
}

TEST_F(Settings, AGoodValueIsTakenInAnyLetterCase) {
    for (const SettingSection& section : description::settingSections()) {
        for (const auto& [name, value] : values.at(toUtf8(section.name))) {
            EXPECT_EQ(mistakesIn(section, name + " = " + value.good), "");
            EXPECT_EQ(mistakesIn(section, shouted(name) + "=" + value.good), "");
        }
    }
}

TEST_F(Settings, ABadValueIsAMistake) {
    for (const SettingSection& section : description::settingSections()) {
        for (const auto& [name, value] : values.at(toUtf8(section.name))) {
            const std::string mistakes = mistakesIn(section, name + " = " + value.bad);
            if (value.bad.empty()) {
                EXPECT_EQ(mistakes, "") << name;
            } else {
                EXPECT_TRUE(mistakes.starts_with("machine.txt:2: ")) << name << ": " << mistakes;
                EXPECT_EQ(mistakes.find("unknown setting"), std::string::npos) << mistakes;
            }
        }
    }
}

TEST_F(Settings, TheExampleIsGood) {
    for (const SettingSection& section : description::settingSections()) {
        EXPECT_EQ(mistakesIn(section, section.table.example), "");
        EXPECT_EQ(mistakesIn(section, "what"),
                  std::string("machine.txt:2: \"what\" is no setting, expected one like ") +
                      section.table.example + "\n");
    }
}

TEST_F(Settings, AnUnknownNameListsAllInTheirOrder) {
    const std::map<std::string, std::string> lists = {
        {"machine", R"("base", "registry" or "files")"},
        {"system",
         R"("computer", "windows", "release", "version", "server", "architecture", "32bit", "processor", )"
         R"("processors", "memory", "started", "now", "windows directory", "current directory", "code page", )"
         R"("sid" or "adapter")"},
        {"user", R"("name" or "administrator")"},
        {"domain",
         R"("joined", "name", "workgroup", "dns", "controller", "primary", "role", "sid", "reachable", )"
         R"("page size", "member page size" or "generate users")"},
        {"cluster", R"("name", "node" or "group")"},
    };
    for (const SettingSection& section : description::settingSections()) {
        EXPECT_EQ(
            mistakesIn(section, "Colour = blue"),
            "machine.txt:2: unknown setting \"Colour\", expected " + lists.at(toUtf8(section.name)) + "\n");
    }
}

TEST_F(Settings, WhatFailsByNameIsFoundInAnyLetterCase) {
    for (const SettingSection& section : description::settingSections()) {
        for (const std::string& name : causeNames(section.table)) {
            EXPECT_EQ(mistakesIn(section, "! error 1722 " + name), "");
            EXPECT_EQ(mistakesIn(section, "! refused " + shouted(name)), "");
        }
    }
}

TEST_F(Settings, ACauseBelongsToWhatItNames) {
    EXPECT_EQ(
        description::loadText("[system]\n! error 31 adapters\n! error 32 code page\n! error 33 system\n")
            .report(),
        "");
    EXPECT_EQ(description::machine().system.adaptersCause.code, 31U);
    EXPECT_EQ(description::machine().system.codePageCause.code, 32U);
    EXPECT_EQ(description::machine().system.systemCause.code, 33U);
}

TEST_F(Settings, AnUnknownCauseListsAllThatCanFail) {
    EXPECT_EQ(
        mistakesOf("[system]\n! error 5 clock\n"),
        "machine.txt:2: \"clock\" cannot fail here, expected \"system\", \"adapters\" or \"code page\"\n");
    EXPECT_EQ(mistakesOf("[domain]\n! refused users\n"),
              "machine.txt:2: \"users\" cannot fail here, expected \"membership\"\n");
}

TEST_F(Settings, NothingFailsByNameWhereNoRowSaysSo) {
    EXPECT_EQ(mistakesOf("[user]\n! error 5 name\n"),
              "machine.txt:2: \"! error 5 name\" is no setting, expected one like name = WS01\\alice\n");
}

// --- The documentation
// --------------------------------------------------------------------------------------------

namespace {

/// The text below the heading that begins with "### [NAME]", up to the next heading.
std::string documented(std::string_view name) {
    std::ifstream file(projectFolder() / "docs" / "machines.md");
    const std::string heading = "### [" + std::string(name) + "]";
    std::string text, line;
    bool inside = false;
    while (std::getline(file, line)) {
        if (line.starts_with("##")) inside = line.starts_with(heading);
        if (inside) text += line + "\n";
    }
    return text;
}

/// What stands as code in the text: between back quotes, or in lines that are indented.
std::vector<std::string> codeIn(const std::string& text) {
    std::vector<std::string> code;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.starts_with("    ")) code.push_back(line.substr(4));
        for (std::size_t open = line.find('`'); open != std::string::npos;) {
            const std::size_t close = line.find('`', open + 1);
            if (close == std::string::npos) break;
            code.push_back(line.substr(open + 1, close - open - 1));
            open = line.find('`', close + 1);
        }
    }
    return code;
}

/// The names of the settings that a text shows.
std::set<std::string> settingsIn(const std::string& text) {
    std::set<std::string> names;
    for (const std::string& code : codeIn(text)) {
        const std::size_t equals = code.find(" = ");
        if (equals != std::string::npos) names.insert(code.substr(0, equals));
    }
    return names;
}

/// What a text says that can fail by name.
std::set<std::string> causesIn(const std::string& text) {
    constexpr std::string_view beginning = "! error CODE ";
    std::set<std::string> names;
    for (const std::string& code : codeIn(text)) {
        if (code.starts_with(beginning)) names.insert(code.substr(beginning.size()));
    }
    return names;
}

}  // namespace

TEST_F(Settings, TheDocumentationNamesThemAllAndNoOthers) {
    for (const SettingSection& section : description::settingSections()) {
        const std::string text = documented(toUtf8(section.name));
        EXPECT_EQ(settingsIn(text), settingNames(section.table)) << toUtf8(section.name);
        EXPECT_EQ(causesIn(text), causeNames(section.table)) << toUtf8(section.name);
    }
}

TEST(DocumentedSettings, AreReadFromTablesTextAndExamples) {
    const std::string text =
        "| `page size = 100` | 100 |\n"
        "`name = a` and `flag`; `! error CODE code page`, `! error CODE`\n"
        "    node = NODE1 up\n"
        "other = text\n";
    EXPECT_EQ(settingsIn(text), (std::set<std::string>{"page size", "name", "node"}));
    EXPECT_EQ(causesIn(text), std::set<std::string>{"code page"});
}
