#include "runtime/host/windows/errors.h"

#include <gtest/gtest.h>

namespace {

using host::Status;
using host::windows::missingOrUnanswered;
using host::windows::unanswered;

TEST(HostErrors, SomeCodesRefuseAndOthersFail) {
    EXPECT_EQ(unanswered<int>(ERROR_ACCESS_DENIED).status, Status::refused);
    EXPECT_EQ(unanswered<int>(ERROR_NOT_READY).status, Status::failed);
    EXPECT_EQ(unanswered<int>(ERROR_NOT_READY).failure.code, static_cast<DWORD>(ERROR_NOT_READY));
    EXPECT_EQ(unanswered<int>(ERROR_FILE_NOT_FOUND).status, Status::failed);
}

TEST(HostErrors, SomeMeanThatTheThingIsNotThere) {
    EXPECT_EQ(missingOrUnanswered<int>(ERROR_FILE_NOT_FOUND).status, Status::missing);
    EXPECT_EQ(missingOrUnanswered<int>(ERROR_PATH_NOT_FOUND).status, Status::missing);
    EXPECT_EQ(missingOrUnanswered<int>(ERROR_ACCESS_DENIED).status, Status::refused);
    EXPECT_EQ(missingOrUnanswered<int>(ERROR_NOT_READY).status, Status::failed);
}

}  // namespace
