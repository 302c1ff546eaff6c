#include "runtime/host/description/scanner.h"
#include "tests/runtime/host/described/described_accounts.h"

namespace {

using Accounts = DescribedAccounts;

TEST_F(Accounts, LookUps) {
    describe(domain);
    const host::Account ada = host::accountOfName(L"CORP\\ADA").value;
    EXPECT_EQ(ada.name, L"ada");
    EXPECT_EQ(host::accountOfSid(ada.sid).value.name, L"ada");
    EXPECT_EQ(host::accountOfName(L"corp.example\\ada").value.domain, L"CORP");
    EXPECT_EQ(host::accountOfName(L".\\local").value.domain, L"FS01");
    EXPECT_EQ(host::accountOfName(L"local").value.domain, L"FS01");
    EXPECT_EQ(host::accountOfName(L"ada").value.domain, L"CORP");
    EXPECT_EQ(host::accountOfName(L"CORP\\Readers").value.name, L"Readers");
    EXPECT_EQ(host::accountOfName(L"BUILTIN\\administrators").value.name, L"Administrators");
    EXPECT_EQ(host::accountOfName(L"Administrators").value.domain, L"BUILTIN");
    EXPECT_EQ(host::accountOfName(L"Everyone").value.sid.authority[5], 1);
    EXPECT_EQ(host::accountOfName(L"NT AUTHORITY\\SYSTEM").value.name, L"SYSTEM");
    EXPECT_TRUE(host::accountOfName(L"nobody").isMissing());
    EXPECT_TRUE(host::accountOfName(L"FS01\\ada").isMissing());
    EXPECT_TRUE(host::accountOfName(L"OTHER\\ada").isMissing());
    EXPECT_TRUE(host::accountOfName(L"").isMissing());
    EXPECT_EQ(host::accountOfSid(*description::sidOf(L"S-1-5-18")).value.name, L"SYSTEM");
    EXPECT_TRUE(host::accountOfSid(*description::sidOf(L"S-1-5-21-9-9-9-9")).isMissing());
    EXPECT_TRUE(host::accountOfSid(host::Sid()).isMissing());
}

}  // namespace
