#include <fstream>

#include "runtime/host/host.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

using host::FileKind;

class Files : public DescribedMachine {
protected:
    static bool isFile(const wchar_t* path) {
        const auto answer = host::fileKind(path);
        return answer.found() && answer.value == FileKind::file;
    }
    static bool isDirectory(const wchar_t* path) {
        const auto answer = host::fileKind(path);
        return answer.found() && answer.value == FileKind::directory;
    }
    static bool isMissing(const wchar_t* path) { return host::fileKind(path).isMissing(); }
};

}  // namespace

TEST_F(Files, PathsAndTheDirectoriesAboveThem) {
    describe("[files]\nC:\\Program Files\\HSM\\kvxclc.exe\nC:\\Empty\\\n\\\\server\\share\\x\n");
    EXPECT_TRUE(isFile(L"C:\\Program Files\\HSM\\kvxclc.exe"));
    EXPECT_TRUE(isFile(L"c:/PROGRAM files/hsm/KVXCLC.EXE"));
    EXPECT_TRUE(isFile(L"C:\\Program Files\\HSM\\kvxclc.exe\\"));
    EXPECT_TRUE(isDirectory(L"C:\\Program Files\\HSM"));
    EXPECT_TRUE(isDirectory(L"C:\\Program Files\\"));
    EXPECT_TRUE(isDirectory(L"C:\\"));
    EXPECT_TRUE(isDirectory(L"C:\\Empty"));
    EXPECT_TRUE(isFile(L"\\\\SERVER\\share\\x"));
    EXPECT_TRUE(isFile(L"\\\\?\\UNC\\server\\share\\x"));
    EXPECT_TRUE(isMissing(L"\\\\server\\share\\y"));
    EXPECT_EQ(host::fileKind(L"\\\\server\\other\\x").failure.code, 53U);
    EXPECT_EQ(host::fileKind(L"\\\\nowhere").failure.code, 53U);
    EXPECT_EQ(host::fileKind(L"\\\\").failure.code, 53U);
    EXPECT_TRUE(isDirectory(L"\\\\?\\C:\\Empty"));
    EXPECT_TRUE(isMissing(L"\\\\?\\C:\\Empty\\..\\Empty"));
    EXPECT_TRUE(isMissing(L"\\\\?\\C:/Empty"));
    EXPECT_TRUE(isMissing(L"C:\\Program Files\\HSM\\other.exe"));
    EXPECT_TRUE(isMissing(L"C:\\Program Files\\HSM\\kvxclc.exe\\below"));
    EXPECT_TRUE(isMissing(L"D:\\"));
    EXPECT_TRUE(isMissing(L""));
}

TEST_F(Files, ADirectoryListedBeforeItsFilesIsADirectory) {
    describe("[files]\nC:\\a\nC:\\a\\b\nC:\\A\n");
    EXPECT_TRUE(isDirectory(L"C:\\a"));
    EXPECT_TRUE(isFile(L"C:\\a\\b"));
}

TEST_F(Files, PathsAreResolvedOverTheDescribedCurrentDirectory) {
    describe("[system]\ncurrent directory = C:\\Users\\alice\n[files]\nC:\\Users\\bob.txt\n");
    EXPECT_TRUE(isFile(L"C:\\Users\\x\\..\\bob.txt"));
    EXPECT_TRUE(isFile(L"\\Users\\bob.txt"));
    EXPECT_TRUE(isFile(L"C:..\\bob.txt"));
    EXPECT_EQ(host::absolutePath(L"..\\bob.txt").value, L"C:\\Users\\bob.txt");
    EXPECT_EQ(host::absolutePath(L"C:\\a\\..\\b\\").value, L"C:\\b\\");
    EXPECT_EQ(host::absolutePath(L"").failure.code, 123U);
    EXPECT_EQ(host::absolutePath(std::wstring(L"a\0b", 3)).value, L"C:\\Users\\alice\\a");
}

TEST_F(Files, PathsAreTakenOutWithAllBelow) {
    describe("[files]\nC:\\a\\b\\c\nC:\\a\\bc\n[contents C:\\a\\b\\d]\nx\n[files]\n- C:\\A\\B\\\n");
    EXPECT_TRUE(isMissing(L"C:\\a\\b"));
    EXPECT_TRUE(isMissing(L"C:\\a\\b\\c"));
    EXPECT_TRUE(host::fileContents(L"C:\\a\\b\\d", 100).isMissing());
    EXPECT_TRUE(isFile(L"C:\\a\\bc"));
}

TEST_F(Files, NaturalCausesHoldForAllBelow) {
    describe("[files]\n! refused C:\\a\nC:\\a\\b\n! error 3 C:\\gone\n! error 1117 C:\\bad\nC:\\ab\n");
    EXPECT_EQ(host::fileKind(L"C:\\a").status, host::Status::refused);
    EXPECT_EQ(host::fileKind(L"C:\\a\\b").failure.code, 5U);
    EXPECT_EQ(host::fileKind(L"C:\\a\\other").status, host::Status::refused);
    EXPECT_EQ(host::fileContents(L"C:\\a\\b", 10).status, host::Status::refused);
    EXPECT_TRUE(isMissing(L"C:\\gone"));
    EXPECT_EQ(host::fileKind(L"C:\\bad").failure.code, 1117U);
    EXPECT_TRUE(isFile(L"C:\\ab"));
}

TEST_F(Files, AnEntryIsGivenBackByListingItAgain) {
    describe("[files]\n! refused C:\\a\n[files]\nC:\\a\n");
    EXPECT_TRUE(isFile(L"C:\\a"));
}

TEST_F(Files, VolumesThatDoNotAnswer) {
    describe("[volumes]\nC: = fixed NTFS\nD: = optical error 21\n");
    EXPECT_TRUE(isDirectory(L"C:\\"));
    EXPECT_TRUE(isMissing(L"C:\\x"));
    EXPECT_EQ(host::fileKind(L"D:\\setup.exe").failure.code, 21U);
    EXPECT_TRUE(isMissing(L"E:\\"));
}

TEST_F(Files, Contents) {
    describe(
        "[contents C:\\q.cfg]\n# kept\n\n  default = 1\n|[system]\n[nothing special]\n\n\n[files]\n"
        "C:\\bare\nC:\\d\\\n");
    EXPECT_EQ(host::fileContents(L"c:\\Q.CFG", 1000).value,
              "# kept\r\n\r\n  default = 1\r\n[system]\r\n[nothing special]\r\n");
    EXPECT_TRUE(isFile(L"C:\\q.cfg"));
    EXPECT_TRUE(host::fileContents(L"C:\\none", 10).isMissing());
    EXPECT_EQ(host::fileContents(L"C:\\d", 10).status, host::Status::failed);
    EXPECT_EQ(host::fileContents(L"C:\\d\\", 10).failure.text, L"it is a directory");
    EXPECT_EQ(host::fileContents(L"C:\\q.cfg\\", 10).failure.code, 123U);
    EXPECT_EQ(host::fileContents(L"C:\\q*.cfg", 10).failure.code, 123U);
    const auto bare = host::fileContents(L"C:\\bare", 10);
    EXPECT_EQ(bare.status, host::Status::failed);
    EXPECT_EQ(bare.failure.text, L"the description of the machine does not hold the contents of this file");
}

TEST_F(Files, ContentsAtTheLimit) {
    describe("[contents C:\\q]\nabcd\n");
    EXPECT_EQ(host::fileContents(L"C:\\q", 6).value, "abcd\r\n");
    EXPECT_EQ(host::fileContents(L"C:\\q", 5).status, host::Status::failed);
    EXPECT_EQ(host::fileContents(L"C:\\q", 5).failure.text, L"it is larger than 5 bytes");
}

TEST_F(Files, EmptyContents) {
    describe("[contents C:\\q]\n");
    EXPECT_TRUE(host::fileContents(L"C:\\q", 0).found());
    EXPECT_EQ(host::fileContents(L"C:\\q", 0).value, "");
}

TEST_F(Files, ContentsThatCannotBeRead) {
    describe("[contents C:\\q]\n! error 32\n");
    EXPECT_TRUE(isFile(L"C:\\q"));
    EXPECT_EQ(host::fileContents(L"C:\\q", 10).failure.code, 32U);
}

TEST_F(Files, ContentsFromAFileBeside) {
    const TemporaryDirectory here;
    std::filesystem::create_directory("m");
    std::ofstream("m/machine.txt") << "[contents C:\\q]\nfrom = raw.bin\n";
    std::ofstream("m/raw.bin", std::ios::binary) << std::string("a\0\xFF\n", 4);
    EXPECT_EQ(description::load(description::RealFiles(), "m").report(), "");
    EXPECT_EQ(host::fileContents(L"C:\\q", 10).value, std::string("a\0\xFF\n", 4));
}

TEST_F(Files, RelativeNamesAreRealFiles) {
    const TemporaryDirectory here;
    describe("");
    EXPECT_TRUE(isMissing(L"check_installation.txt"));
    std::ofstream("check_installation.txt") << "text";
    EXPECT_TRUE(isFile(L"check_installation.txt"));
    std::filesystem::create_directory("d");
    EXPECT_TRUE(isDirectory(L"d"));
    EXPECT_TRUE(isDirectory(L".\\d\\"));
    std::ofstream("d/x") << "12345";
    EXPECT_EQ(host::fileContents(L"d\\x", 5).value, "12345");
    EXPECT_EQ(host::fileContents(L"d\\x", 4).status, host::Status::failed);
    EXPECT_TRUE(host::fileContents(L"none", 4).isMissing());
    EXPECT_TRUE(isMissing(L"check_installation.txt\\below"));
    EXPECT_EQ(host::fileContents(L"d", 4).failure.text, L"it is a directory");
    EXPECT_EQ(host::fileContents(L"d\\", 4).failure.text, L"it is a directory");
    EXPECT_EQ(host::fileContents(L"d\\x. ", 5).value, "12345");
    EXPECT_EQ(host::fileContents(L"d\\x\\", 4).failure.code, 123U);
    EXPECT_EQ(host::fileContents(L"d\\?", 4).failure.code, 123U);
    EXPECT_TRUE(isFile(L"d\\x. ."));
    EXPECT_TRUE(isFile(L"d\\x\\"));
    EXPECT_TRUE(isDirectory(L"..."));
    EXPECT_TRUE(isMissing(L"d\\ "));
    EXPECT_TRUE(isMissing(std::wstring(300, L'n').c_str()));
}
