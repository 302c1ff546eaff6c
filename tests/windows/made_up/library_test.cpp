/// The made-up network library itself: a wrong call gets the code that the system would give, so that it is
/// seen.

#include "runtime/host/windows/net_api.h"
#include "tests/windows/made_up/made_up.h"

namespace {

using host::windows::netApi;
using host::windows::NetItems;

class Library : public MadeUp {
protected:
    void SetUp() override {
        MadeUp::SetUp();
        describe(member +
                 "[domain users]\nalice\n[domain groups]\nReaders = alice\n[global groups]\nStaff = alice\n");
    }

    static DWORD display(DWORD level, DWORD wanted) {
        DWORD count = 0;
        NetItems<NET_DISPLAY_USER> items;
        return netApi().queryDisplayInformation.code(L"\\\\DC01", level, 0, wanted, MAX_PREFERRED_LENGTH,
                                                     &count, items.receive());
    }
    static DWORD groupsOf(const wchar_t* server, const wchar_t* user, DWORD level, DWORD flags) {
        DWORD count = 0, total = 0;
        NetItems<LOCALGROUP_USERS_INFO_0> items;
        return netApi().userGetLocalGroups.code(server, user, level, flags, items.receive(),
                                                MAX_PREFERRED_LENGTH, &count, &total);
    }
    static DWORD controllerOf(const wchar_t* domain, ULONG flags) {
        host::windows::Owner<host::windows::NetBufferTraits<PDOMAIN_CONTROLLER_INFOW>> info;
        return netApi().getDcName.code(nullptr, domain, nullptr, nullptr, flags, info.receive());
    }
};

TEST_F(Library, AnUnknownLevelIsTold) {
    EXPECT_EQ(display(1, 100), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(display(2, 100), static_cast<DWORD>(ERROR_INVALID_LEVEL));
    EXPECT_EQ(display(1, 0), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(groupsOf(L"\\\\DC01", L"alice", 1, 0), static_cast<DWORD>(ERROR_INVALID_LEVEL));
    DWORD count = 0, total = 0;
    DWORD_PTR resume = 0;
    NetItems<LOCALGROUP_INFO_0> items;
    EXPECT_EQ(netApi().localGroupEnum.code(L"\\\\DC01", 1, items.receive(), MAX_PREFERRED_LENGTH, &count,
                                           &total, &resume),
              static_cast<DWORD>(ERROR_INVALID_LEVEL));
    EXPECT_EQ(netApi().localGroupGetMembers.code(L"\\\\DC01", L"Readers", 3, items.receive(),
                                                 MAX_PREFERRED_LENGTH, &count, &total, &resume),
              static_cast<DWORD>(ERROR_INVALID_LEVEL));
    EXPECT_EQ(netApi().groupGetUsers.code(L"\\\\DC01", L"Staff", 1, items.receive(), MAX_PREFERRED_LENGTH,
                                          &count, &total, &resume),
              static_cast<DWORD>(ERROR_INVALID_LEVEL));
    EXPECT_EQ(netApi().userModalsGet.code(L"\\\\DC01", 0, items.receive()),
              static_cast<DWORD>(ERROR_INVALID_LEVEL));
}

TEST_F(Library, AnUnknownFlagServerOrNameIsTold) {
    EXPECT_EQ(groupsOf(L"\\\\DC01", L"alice", 0, 2), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(groupsOf(L"\\\\DC01 ", L"alice", 0, 0), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(groupsOf(L"\\\\DC09", L"alice", 0, 0), static_cast<DWORD>(ERROR_BAD_NETPATH));
    EXPECT_EQ(groupsOf(L"\\\\DC01", L"bob", 0, 0), static_cast<DWORD>(NERR_UserNotFound));
    EXPECT_EQ(groupsOf(L"\\\\DC01", L"OTHER\\alice", 0, 0), static_cast<DWORD>(NERR_UserNotFound));
    EXPECT_EQ(groupsOf(L"\\\\DC01", L"CORP\\alice", 0, 0), static_cast<DWORD>(ERROR_SUCCESS));
}

TEST_F(Library, TheKindOfADomainNameMustBeRight) {
    EXPECT_EQ(controllerOf(L"CORP", DS_IS_FLAT_NAME), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(controllerOf(L"corp.example", DS_IS_DNS_NAME), static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(controllerOf(L"CORP", DS_IS_DNS_NAME), static_cast<DWORD>(ERROR_INVALID_DOMAINNAME));
    EXPECT_EQ(controllerOf(L"corp.example", DS_IS_FLAT_NAME), static_cast<DWORD>(ERROR_INVALID_DOMAINNAME));
    EXPECT_EQ(controllerOf(L"CORP", DS_IS_FLAT_NAME | DS_IS_DNS_NAME),
              static_cast<DWORD>(ERROR_INVALID_FLAGS));
    EXPECT_EQ(controllerOf(L"WS01", DS_IS_FLAT_NAME), static_cast<DWORD>(ERROR_NO_SUCH_DOMAIN));
}

TEST_F(Library, APageHoldsAHundredAccountsWhateverIsAskedFor) {
    describe(member + "[domain users]\ngenerate users = 150 user%03d\n");
    DWORD count = 0;
    NetItems<NET_DISPLAY_USER> items;
    EXPECT_EQ(netApi().queryDisplayInformation.code(L"\\\\DC01", 1, 0, 1000, MAX_PREFERRED_LENGTH, &count,
                                                    items.receive()),
              static_cast<DWORD>(ERROR_MORE_DATA));
    EXPECT_EQ(count, 100U);
    EXPECT_EQ(netApi().queryDisplayInformation.code(L"\\\\DC01", 1, 100, 1000, MAX_PREFERRED_LENGTH, &count,
                                                    items.receive()),
              static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(count, 50U);
}

}  // namespace
