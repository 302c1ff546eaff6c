/// Everything that can be wrong with a description is named with file and line.

#include <fstream>

#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class Mistakes : public DescribedMachine {
protected:
    /// The one mistake of a description whose third line is `line`, below the heading `heading` in line 2.
    static std::string mistakeIn(const std::string& heading, const std::string& line) {
        return mistakesOf("# A machine.\n" + heading + "\n" + line + "\n");
    }

    static void expectMistake(const std::string& heading, const std::string& line, const std::string& part) {
        const std::string mistakes = mistakeIn(heading, line);
        EXPECT_TRUE(mistakes.starts_with("machine.txt:3: ")) << line << "\n" << mistakes;
        EXPECT_NE(mistakes.find(part), std::string::npos) << line << "\n" << mistakes;
        EXPECT_EQ(mistakes.find('\n'), mistakes.size() - 1) << line << "\n" << mistakes;
    }

    static void expectNone(const std::string& heading, const std::string& line) {
        EXPECT_EQ(mistakeIn(heading, line), "") << line;
    }
};

}  // namespace

TEST_F(Mistakes, UnknownSection) {
    EXPECT_EQ(mistakesOf("[system]\n\n[sytem]\ncomputer = A\n").substr(0, 39),
              "machine.txt:3: unknown section [sytem],");
}

TEST_F(Mistakes, TextBeforeTheFirstSection) {
    EXPECT_EQ(mistakesOf("# comment\n\ncomputer = A\n"),
              "machine.txt:3: \"computer = A\" stands in no section, expected a heading like [system]\n");
}

TEST_F(Mistakes, OfMachine) {
    expectMistake("[machine]", "bsae = sample",
                  "unknown setting \"bsae\", expected \"base\", \"registry\" or \"files\"");
    expectMistake("[machine]", "sample", "is no setting");
    expectMistake("[machine]", "base = nowhere", "the description nowhere cannot be read: no such file");
    expectMistake("[machine]", "registry = x.reg", "x.reg cannot be read: no such file");
    expectMistake("[machine]", "files = x.txt", "x.txt cannot be read: no such file");
}

TEST_F(Mistakes, BaseComesFirst) {
    EXPECT_EQ(mistakesOf("[system]\ncomputer = A\n[machine]\nbase = sample\n"),
              "machine.txt:4: \"base\" comes too late, expected it before everything else\n");
}

TEST_F(Mistakes, BaseOfItself) {
    EXPECT_EQ(mistakesOf("[machine]\nbase = machine.txt\n"),
              "machine.txt:2: too many descriptions stand on each other, expected at most 16\n");
}

TEST_F(Mistakes, OfSystem) {
    expectMistake("[system]", "computr = A",
                  "unknown setting \"computr\", expected \"computer\", \"windows\", ");
    expectMistake("[system]", "computer", "\"computer\" is no setting, expected one like computer = WS01");
    expectMistake("[system]", "version = 10.x", "\"10.x\" is no version, expected one like 10.0.20348.2113");
    expectMistake("[system]", "version = 1.2.3.4.5", "is no version");
    expectMistake("[system]", "server = maybe", "\"maybe\" is neither \"yes\" nor \"no\"");
    expectMistake("[system]", "architecture = vax", "\"vax\" is no architecture, expected x64, ARM64 or x86");
    expectMistake("[system]", "processors = many", "\"many\" is no number");
    expectMistake("[system]", "memory = 16 XB", "\"16 XB\" is no size, expected one like 16 GB");
    expectMistake("[system]", "started = yesterday", "is no time, expected one like 2026-11-19 07:30:00");
    expectMistake("[system]", "started = 2026-13-19 07:30:00", "is no time");
    expectMistake("[system]", "windows directory = Windows",
                  "is no absolute path, expected one like C:\\Windows");
    expectMistake("[system]", "code page = ANSI", "is no code page, expected one like 1252 ANSI - Latin I");
    expectMistake("[system]", "adapter = 192.0.2.1", "is no adapter");
    expectMistake("[system]", "sid = S-2", "is no SID");
    expectMistake("[system]", "! error 5 clock", "\"clock\" cannot fail here");
    expectMistake("[system]", "! failed system",
                  "names no cause, expected \"! refused ...\" or \"! error CODE ...\"");
}

TEST_F(Mistakes, OfUser) {
    expectMistake("[user]", "nmae = a", "unknown setting \"nmae\", expected \"name\" or \"administrator\"");
    expectMistake("[user]", "name = WS01\\", "is no user name");
    expectMistake("[user]", "name = " + std::string(512, 'a'), "with at most 511 characters");
    expectMistake("[user]", "administrator = 1", "is neither \"yes\" nor \"no\"");
    expectNone("[user]", "name = " + std::string(511, 'a'));
}

TEST_F(Mistakes, OfAccounts) {
    expectMistake("[users]", "a*b", "\"a*b\" is no account name");
    expectMistake("[users]", "alice = S-1-", "\"S-1-\" is no SID, expected one like S-1-5-21-1-2-3-1001");
    expectMistake("[users]", "alice =", "is no SID");
    expectMistake("[users]", "generate users = 3 user",
                  "generates nothing, expected a number up to 10000000");
    expectMistake("[users]", "generate users = 3 user%d%d", "generates nothing");
    expectMistake("[users]", "generate users = 3 us/er%d", "generates nothing");
    expectMistake("[domain users]", "generate users = 99999999 user%d", "generates nothing");
    expectMistake("[users]", "! error 5 alice", "causes hold for the whole list here");
    expectMistake("[users]", "! error 5 after noon", "\"noon\" is no number of accounts");
    expectMistake("[groups]", "G = nobody", "there is no account \"nobody\" in this description");
    expectMistake("[groups]", "a/b = ", "is no account name");
    expectNone("[groups]", "G = OTHER\\somebody, S-1-5-21-1-2-3-4, *, Everyone");
}

TEST_F(Mistakes, OfDomain) {
    expectMistake("[domain]", "joind = yes", "unknown setting \"joind\"");
    expectMistake("[domain]", "role = boss", "\"boss\" is no role, expected member or controller");
    expectMistake("[domain]", "reachable = perhaps", "is neither \"yes\" nor \"no\" nor \"no CODE\"");
    expectMistake("[domain]", "reachable = no way", "is neither \"yes\" nor \"no\" nor \"no CODE\"");
    expectMistake("[domain]", "page size = 0", "a page holds at least one account");
    expectMistake("[domain]", "page size = all", "is no number");
    expectMistake("[domain]", "member page size = 0", "a page holds at least one account");
    expectMistake("[domain]", "! error 5 users", "cannot fail here, expected \"membership\"");
}

TEST_F(Mistakes, AMemberOfTheDescribedDomainMustBeThere) {
    EXPECT_EQ(
        mistakesOf(
            "[domain]\njoined = yes\nname = CORP\n[domain users]\nada\n[groups]\nG = CORP\\ada, CORP\\bda\n"),
        "machine.txt:7: there is no account \"CORP\\bda\" in this description, expected a user or group of "
        "it, "
        "DOMAIN\\NAME of another domain or a SID\n");
}

TEST_F(Mistakes, OfVolumes) {
    expectMistake("[volumes]", "C: fixed", "is no setting, expected one like C: = fixed NTFS");
    expectMistake("[volumes]", "disk = fixed", "\"disk\" is no volume");
    expectMistake("[volumes]", "1: = fixed", "\"1:\" is no volume");
    expectMistake("[volumes]", "C: = floppy", "begins with no type of drive");
    expectMistake("[volumes]", "C: = fixed NTFS NTFS", "\"NTFS\" tells nothing about a volume");
    expectMistake("[volumes]", "C: = fixed NTFS \"System", "\"\"System\" tells nothing about a volume");
    expectMistake("[volumes]", "C: = fixed NTFS free much", "tells nothing about a volume");
}

TEST_F(Mistakes, OfCluster) {
    expectMistake("[cluster]", "nodes = A",
                  "unknown setting \"nodes\", expected \"name\", \"node\" or \"group\"");
    expectMistake("[cluster]", "node = NODE1", "is no node, expected NAME and up, down");
    expectMistake("[cluster]", "node = NODE1 sleeping", "is no node");
    expectMistake("[cluster]", "group = G owner A", "is no group");
}

TEST_F(Mistakes, OfServices) {
    expectMistake("[services]", "rkhsmdrv", "is no setting");
    expectMistake("[services]", "rkhsmdrv = up", "begins with no state, expected running");
    expectMistake("[services]", "rkhsmdrv = runningfast", "begins with no state");
}

TEST_F(Mistakes, OfFiles) {
    expectMistake("[files]", "kvxclc.exe", "is no absolute path, expected one like C:\\Windows\\notepad.exe");
    expectMistake("[files]", "- kvxclc.exe", "is no absolute path");
    expectMistake("[files]", "! error C:\\a", "names no cause");
    expectMistake("[files]", "! refused a", "is no absolute path");
    expectMistake("[versions]", "C:\\a.sys", "tells no version");
    expectMistake("[versions]", "C:\\a.sys = 1.70000", "tells no version");
    expectMistake("[versions]", "a.sys = 1.7", "is no absolute path");
    EXPECT_TRUE(mistakesOf("[contents quota.cfg]\ntext\n")
                    .starts_with("machine.txt:1: \"quota.cfg\" is no absolute path"));
    EXPECT_TRUE(mistakesOf("[contents]\n").starts_with("machine.txt:1: \"\" is no absolute path"));
    expectMistake("[contents C:\\q.cfg]", "from = q.cfg", "q.cfg cannot be read: no such file");
    expectMistake("[contents C:\\q.cfg]", "! broken", "names no cause");
}

TEST_F(Mistakes, OfRegistry) {
    expectMistake("[registry]", "Path=1", "is neither a key nor a value");
    expectMistake("[registry]", "[HKEY_LOCAL_MACHINE\\A", "has no closing bracket");
    expectMistake("[registry]", "[SOFTWARE\\A]",
                  "\"SOFTWARE\\A\" is no key, expected one below HKEY_LOCAL_MACHINE");
    expectMistake("[registry]", "[HKEY_LOCAL_MACHINE\\A] denied",
                  "\"denied\" follows where the line should end");
    expectMistake("[registry]", "\"a\"=\"b\"", "a value without a key");
    const std::string key = "[registry]\n[HKEY_LOCAL_MACHINE\\A]";
    const auto expectIn = [&](const std::string& line, const std::string& part) {
        const std::string mistakes = mistakesOf(key + "\n" + line + "\n");
        EXPECT_TRUE(mistakes.starts_with("machine.txt:3: ")) << mistakes;
        EXPECT_NE(mistakes.find(part), std::string::npos) << mistakes;
    };
    expectIn("\"a", "a quote without its end");
    expectIn("\"a\"=\"b", "a quote without its end");
    expectIn("\"a\" \"b\"", "no \"=\" behind the name of a value");
    expectIn("\"a\"=b", "is no data");
    expectIn("\"a\"=\"b\" c", "follows where the line should end");
    expectIn("\"a\"=dword:123456789", "is no number, expected one to eight hexadecimal digits");
    expectIn("\"a\"=dword:x", "is no number");
    expectIn("\"a\"=hex:1,2,xyz", "no bytes behind \"hex\"");
    expectIn("\"a\"=hex", "no bytes behind \"hex\"");
    expectIn("\"a\"=hex(x):01", "\"(x)\" is no type, expected one like hex(2):");
    expectIn("\"a\"=error", "is no data");
}

TEST_F(Mistakes, OfFailures) {
    expectMistake("[failures]", "QVPath::mf_exists", "has no \":\", expected OPERATION : OUTCOME");
    expectMistake("[failures]", "QVPath::mf_exist : foreign",
                  "there is no operation \"QVPath::mf_exist\", expected QVPath::mf_appendDirectory, ");
    expectMistake("[failures]", "fopen : foreign",
                  "there is no operation \"fopen\", expected AllocateAndInitializeSid, ");
    expectMistake("[failures]", "QVNone::mf_x : foreign", "expected CLASS::OPERATION as the classes name it");
    expectMistake("[failures]", "QVPath::mf_exists \"a : foreign", "has no \":\"");
    expectMistake("[failures]", "QVPath::mf_exists call 0 : foreign",
                  "tells no call, expected \"call N\" or \"from call N\"");
    expectMistake("[failures]", "QVPath::mf_exists from 2 : foreign", "tells no call");
    expectMistake("[failures]", "QVPath::mf_exists call 2 3 : foreign", "tells no call");
    expectMistake("[failures]", "QVPath::mf_exists twice : foreign", "tells no call");
    expectMistake("[failures]", "QVPath::mf_exists : fails", "\"fails\" is no outcome");
    expectMistake("[failures]", "QVPath::mf_exists : answer 1", "is no outcome");
    expectMistake("[failures]", "QVPath::mf_exists : foreign x", "is no outcome");
    expectMistake("[failures]", "QVPath::mf_exists : error Disk", "is no outcome");
    expectMistake("[failures]", "QVPath::mf_exists : error Path 5 text", "is no outcome");
    expectMistake("[failures]", "QVPath::mf_exists : grows 300", "is no outcome");
    expectMistake("[failures]", "GetWindowsDirectoryW : grows 1", "or \"grows CHARACTERS\"");
    expectMistake("[failures]", "GetWindowsDirectoryW : grows 4294967296", "or \"grows CHARACTERS\"");
    expectMistake("[failures]", "_wfopen_s : answer 0", "0 is the success of _wfopen_s, expected an error");
}

TEST_F(Mistakes, AllAreNamedAtOnce) {
    EXPECT_EQ(mistakesOf("[system]\nserver = a\n32bit = b\n"),
              "machine.txt:2: \"a\" is neither \"yes\" nor \"no\"\n"
              "machine.txt:3: \"b\" is neither \"yes\" nor \"no\"\n");
}

TEST_F(Mistakes, ManyAreCounted) {
    std::string text = "[system]\n";
    for (int line = 0; line < 25; ++line)
        text += "server = a\n";
    EXPECT_TRUE(mistakesOf(text).ends_with("... and 5 more\n"));
}

TEST_F(Mistakes, AreQuotedSafely) {
    expectMistake("[system]", "server = \x1B[31m", "\"?[31m\" is neither");
    expectMistake("[system]", "server = " + std::string(500, 'a'),
                  "\"" + std::string(60, 'a') + "...\" is neither");
}

TEST_F(Mistakes, NameTheFileInWhichTheyStand) {
    const TemporaryDirectory here;
    std::filesystem::create_directory("machine");
    std::ofstream("machine/machine.txt")
        << "[machine]\nregistry = a.reg\nfiles = sub/list.txt\nbase = ../other.txt\n";
    std::ofstream("machine/a.reg") << "Windows Registry Editor Version 5.00\n\n\"x\"=dword:1\n";
    std::filesystem::create_directory("machine/sub");
    std::ofstream("machine/sub/list.txt") << "C:\\a\nb\n";
    const description::Mistakes mistakes = description::load(description::RealFiles(), "machine");
    ASSERT_EQ(mistakes.texts().size(), 3U);
    EXPECT_TRUE(mistakes.texts()[0].starts_with("machine/a.reg:3: a value without a key"));
    EXPECT_TRUE(mistakes.texts()[1].starts_with("machine/sub/list.txt:2: \"b\" is no absolute path"));
    EXPECT_EQ(mistakes.texts()[2],
              "machine/machine.txt:4: \"base\" comes too late, expected it before everything else");
}

TEST_F(Mistakes, ADescriptionThatIsNotThere) {
    const description::Mistakes mistakes = description::load(description::RealFiles(), "/nowhere/at/all");
    EXPECT_EQ(
        mistakes.report(),
        "/nowhere/at/all:0: the description /nowhere/at/all cannot be read: No such file or directory\n");
}
