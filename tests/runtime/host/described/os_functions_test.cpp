#include "runtime/host/described/os_functions.h"

#include <cerrno>
#include <fstream>
#include <thread>

#include "runtime/host/description/scanner.h"
#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

class OsFunctions : public DescribedMachine {
protected:
    OsFunctions() { SetLastError(4711); }

    static bool isMember(std::initializer_list<DWORD> parts) {
        SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
        std::vector<DWORD> all(parts);
        const auto count = static_cast<BYTE>(all.size());
        all.resize(8);
        PSID sid = nullptr;
        EXPECT_NE(AllocateAndInitializeSid(&authority, count, all[0], all[1], all[2], all[3], all[4], all[5],
                                           all[6], all[7], &sid),
                  0);
        BOOL answer = 2;
        EXPECT_NE(CheckTokenMembership(nullptr, sid, &answer), 0);
        EXPECT_EQ(FreeSid(sid), nullptr);
        return answer == 1;
    }
};

}  // namespace

TEST_F(OsFunctions, WindowsDirectoryTellsTheSizeItNeeds) {
    describe("[system]\nwindows directory = C:\\Windows\n");
    wchar_t buffer[32] = L"untouched";
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 11U);
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 100), 11U);
    EXPECT_EQ(GetWindowsDirectoryW(buffer, 10), 11U);
    EXPECT_STREQ(buffer, L"untouched");
    SetLastError(4711);
    EXPECT_EQ(GetWindowsDirectoryW(buffer, 11), 10U);
    EXPECT_STREQ(buffer, L"C:\\Windows");
    EXPECT_EQ(GetLastError(), 4711U);
}

TEST_F(OsFunctions, ASizeThatIsNeededLeavesACode) {
    describe("[system]\nwindows directory = C:\\Windows\n");
    wchar_t buffer[32];
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 11U);
    EXPECT_EQ(GetLastError(), 122U);
    SetLastError(0);
    EXPECT_EQ(GetWindowsDirectoryW(buffer, 10), 11U);
    EXPECT_EQ(GetLastError(), 122U);
}

TEST_F(OsFunctions, AThreadBeginsWithAStaleCode) {
    DWORD code = 0;
    std::thread([&] { code = GetLastError(); }).join();
    EXPECT_EQ(code, 127U);
}

TEST_F(OsFunctions, WindowsDirectoryGrows) {
    describe("[failures]\nGetWindowsDirectoryW from call 2 : grows 300\n");
    std::wstring buffer(400, L'?');
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 11U);
    EXPECT_EQ(GetWindowsDirectoryW(buffer.data(), 11), 300U);
    EXPECT_EQ(buffer[0], L'?');
    EXPECT_EQ(GetWindowsDirectoryW(buffer.data(), 300), 299U);
    EXPECT_EQ(buffer[299], L'\0');
    EXPECT_EQ(buffer[300], L'?');
    EXPECT_TRUE(buffer.starts_with(L"C:\\Windows"));
}

TEST_F(OsFunctions, WindowsDirectoryCanGrowBeyondAllMemory) {
    describe("[failures]\nGetWindowsDirectoryW call 1 : grows 4294967295\n");
    wchar_t buffer[32];
    EXPECT_EQ(GetWindowsDirectoryW(buffer, 32), 4294967295U);
    EXPECT_EQ(GetWindowsDirectoryW(buffer, 32), 10U);
}

TEST_F(OsFunctions, WindowsDirectoryFails) {
    describe(
        "[failures]\nGetWindowsDirectoryW call 1 : error System 8\nGetWindowsDirectoryW call 2 : answer 0\n"
        "GetWindowsDirectoryW call 3 : foreign\n");
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 0U);
    EXPECT_EQ(GetLastError(), 8U);
    SetLastError(1);
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 0U);
    EXPECT_EQ(GetLastError(), 1U);
    EXPECT_THROW(GetWindowsDirectoryW(nullptr, 0), std::runtime_error);
    EXPECT_EQ(GetWindowsDirectoryW(nullptr, 0), 11U);
}

TEST_F(OsFunctions, UserName) {
    describe("[user]\nname = CORP\\alice\n");
    wchar_t buffer[16] = L"untouched";
    DWORD size = 5;
    EXPECT_EQ(GetUserNameW(buffer, &size), 0);
    EXPECT_EQ(size, 6U);
    EXPECT_EQ(GetLastError(), 122U);
    EXPECT_STREQ(buffer, L"untouched");
    SetLastError(4711);
    EXPECT_NE(GetUserNameW(buffer, &size), 0);
    EXPECT_EQ(size, 6U);
    EXPECT_STREQ(buffer, L"alice");
    EXPECT_EQ(GetLastError(), 4711U);
    size = 100;
    EXPECT_EQ(GetUserNameW(nullptr, &size), 0);
    EXPECT_EQ(GetLastError(), 122U);
    EXPECT_EQ(GetUserNameW(buffer, nullptr), 0);
    EXPECT_EQ(GetLastError(), 87U);
}

TEST_F(OsFunctions, UserNameFails) {
    describe("[failures]\nGetUserNameW call 1 : error System 1314\nGetUserNameW call 2 : foreign\n");
    wchar_t buffer[300];
    DWORD size = 300;
    EXPECT_EQ(GetUserNameW(buffer, &size), 0);
    EXPECT_EQ(GetLastError(), 1314U);
    EXPECT_EQ(size, 300U);
    EXPECT_THROW(GetUserNameW(buffer, &size), std::runtime_error);
}

TEST_F(OsFunctions, DeletesRealFiles) {
    const TemporaryDirectory here;
    describe("[files]\nC:\\a.txt\n");
    std::ofstream("x.txt") << "x";
    EXPECT_NE(DeleteFileW(L"x.txt"), 0);
    EXPECT_FALSE(std::filesystem::exists("x.txt"));
    EXPECT_EQ(GetLastError(), 4711U);
    EXPECT_EQ(DeleteFileW(L"x.txt"), 0);
    EXPECT_EQ(GetLastError(), 2U);
    std::filesystem::create_directory("d");
    EXPECT_EQ(DeleteFileW(L"d"), 0);
    EXPECT_EQ(GetLastError(), 5U);
    EXPECT_EQ(DeleteFileW(L"none\\x.txt"), 0);
    EXPECT_EQ(GetLastError(), 3U);
    EXPECT_EQ(DeleteFileW(L"d\\x.txt"), 0);
    EXPECT_EQ(GetLastError(), 2U);
    EXPECT_EQ(DeleteFileW(L""), 0);
    EXPECT_EQ(GetLastError(), 3U);
    EXPECT_EQ(DeleteFileW(L"C:\\a.txt"), 0);
    EXPECT_EQ(GetLastError(), 5U);
    EXPECT_EQ(DeleteFileW(L"C:\\none.txt"), 0);
    EXPECT_EQ(GetLastError(), 2U);
    EXPECT_EQ(DeleteFileW(nullptr), 0);
    EXPECT_EQ(GetLastError(), 87U);
}

TEST_F(OsFunctions, DeletionFailsBySubject) {
    const TemporaryDirectory here;
    describe("[failures]\nDeleteFileW \"x.txt\" : error System 32\n");
    std::ofstream("x.txt") << "x";
    std::ofstream("y.txt") << "y";
    EXPECT_EQ(DeleteFileW(L"x.txt"), 0);
    EXPECT_EQ(GetLastError(), 32U);
    EXPECT_TRUE(std::filesystem::exists("x.txt"));
    EXPECT_NE(DeleteFileW(L"y.txt"), 0);
}

TEST_F(OsFunctions, AdministratorsAreWhatTheDescriptionSays) {
    describe("[user]\nadministrator = yes\n");
    EXPECT_TRUE(isMember({SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS}));
    EXPECT_FALSE(isMember({SECURITY_BUILTIN_DOMAIN_RID, 545}));
    describe(
        "[system]\ncomputer = A\n[user]\nname = A\\alice\nadministrator = no\n[users]\nalice\n"
        "[groups]\nAdministrators = alice\nUsers = alice\n");
    EXPECT_FALSE(isMember({SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS}));
    EXPECT_TRUE(isMember({SECURITY_BUILTIN_DOMAIN_RID, 545}));
    EXPECT_FALSE(isMember({18}));
}

TEST_F(OsFunctions, SidsAreLaidOutAsWindowsDoes) {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    PSID sid = nullptr;
    ASSERT_NE(AllocateAndInitializeSid(&authority, 2, 32, 544, 0, 0, 0, 0, 0, 0, &sid), 0);
    const auto* bytes = static_cast<const BYTE*>(sid);
    const BYTE expected[] = {1, 2, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 2, 0, 0};
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), bytes));
    FreeSid(sid);
    EXPECT_EQ(AllocateAndInitializeSid(&authority, 9, 0, 0, 0, 0, 0, 0, 0, 0, &sid), 0);
    EXPECT_EQ(GetLastError(), 1337U);
    EXPECT_EQ(AllocateAndInitializeSid(nullptr, 1, 0, 0, 0, 0, 0, 0, 0, 0, &sid), 0);
    EXPECT_EQ(GetLastError(), 87U);
    EXPECT_EQ(FreeSid(nullptr), nullptr);
}

TEST_F(OsFunctions, MembershipFails) {
    describe(
        "[failures]\nAllocateAndInitializeSid call 1 : error System 8\n"
        "CheckTokenMembership : error System 1008\n");
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    PSID sid = nullptr;
    EXPECT_EQ(AllocateAndInitializeSid(&authority, 1, 18, 0, 0, 0, 0, 0, 0, 0, &sid), 0);
    EXPECT_EQ(GetLastError(), 8U);
    EXPECT_EQ(sid, nullptr);
    ASSERT_NE(AllocateAndInitializeSid(&authority, 1, 18, 0, 0, 0, 0, 0, 0, 0, &sid), 0);
    BOOL answer = 7;
    EXPECT_EQ(CheckTokenMembership(nullptr, sid, &answer), 0);
    EXPECT_EQ(GetLastError(), 1008U);
    EXPECT_EQ(answer, 7);
    describe("");
    EXPECT_EQ(CheckTokenMembership(&answer, sid, &answer), 0);
    EXPECT_EQ(GetLastError(), 6U);
    EXPECT_EQ(CheckTokenMembership(nullptr, nullptr, &answer), 0);
    EXPECT_EQ(GetLastError(), 1337U);
    EXPECT_EQ(CheckTokenMembership(nullptr, sid, nullptr), 0);
    EXPECT_EQ(GetLastError(), 87U);
    FreeSid(sid);
}

TEST_F(OsFunctions, OpensStreams) {
    const TemporaryDirectory here;
    describe("[files]\nC:\\a.txt\n");
    std::FILE* stream = nullptr;
    ASSERT_EQ(_wfopen_s(&stream, L"r.txt", L"wt"), 0);
    EXPECT_NE(std::fputs("x", stream), EOF);
    EXPECT_EQ(std::fclose(stream), 0);
    EXPECT_EQ(std::filesystem::file_size("r.txt"), 1U);
    ASSERT_EQ(_wfopen_s(&stream, L"r.txt", L"r+b"), 0);
    std::fclose(stream);
    EXPECT_EQ(_wfopen_s(&stream, L"none.txt", L"r"), ENOENT);
    EXPECT_EQ(stream, nullptr);
    EXPECT_EQ(_wfopen_s(&stream, L".", L"w"), EACCES);
    EXPECT_EQ(_wfopen_s(&stream, L"C:\\a.txt", L"r"), EACCES);
    EXPECT_EQ(_wfopen_s(&stream, L"C:\\none.txt", L"w"), ENOENT);
    EXPECT_EQ(_wfopen_s(&stream, L"r.txt", L"q"), EINVAL);
    EXPECT_EQ(_wfopen_s(&stream, L"r.txt", L""), EINVAL);
    EXPECT_EQ(_wfopen_s(&stream, L"r.txt", L"w, ccs=UTF-8"), EINVAL);
    EXPECT_EQ(_wfopen_s(&stream, nullptr, L"w"), EINVAL);
    EXPECT_EQ(_wfopen_s(nullptr, L"r.txt", L"w"), EINVAL);
}

TEST_F(OsFunctions, StreamsFail) {
    const TemporaryDirectory here;
    describe(
        "[failures]\n_wfopen_s call 1 : error System 24\n_wfopen_s call 2 : error System\n"
        "_wfopen_s call 3 : foreign\n");
    std::FILE* stream = nullptr;
    EXPECT_EQ(_wfopen_s(&stream, L"r.txt", L"w"), 24);
    EXPECT_EQ(_wfopen_s(&stream, L"r.txt", L"w"), EACCES);
    EXPECT_THROW(_wfopen_s(&stream, L"r.txt", L"w"), std::runtime_error);
    EXPECT_EQ(stream, nullptr);
    EXPECT_FALSE(std::filesystem::exists("r.txt"));
}
