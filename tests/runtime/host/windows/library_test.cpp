#include "runtime/host/windows/library.h"

#include <gtest/gtest.h>

namespace {

TEST(HostLibrary, AMissingLibraryOrFunctionIsAnErrorCode) {
    const host::windows::Library none(L"kvx-no-such-library.dll");
    const host::windows::Function<DWORD()> ofNone(none, "Any");
    EXPECT_FALSE(ofNone);
    EXPECT_EQ(ofNone.code(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));

    const host::windows::Library some(L"version.dll");
    const host::windows::Function<DWORD()> notInIt(some, "KvxNoSuchFunction");
    EXPECT_FALSE(notInIt);
    EXPECT_EQ(notInIt.code(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

}  // namespace
