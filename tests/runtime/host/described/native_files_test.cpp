#include "runtime/host/described/native_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <utility>

#include "tests/files.h"

namespace {

using described::Descriptor;

bool isOpen(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

TEST(NativeName, HasSlashesAndUtf8) {
    EXPECT_EQ(described::nativeName(L"config\\\u00E4.cfg"), "config/\xC3\xA4.cfg");
    EXPECT_EQ(described::nativeName(L""), "");
}

TEST(Descriptor, IsClosedByItsLastOwner) {
    const int number = open("/dev/null", O_RDONLY);
    {
        Descriptor first(number);
        const Descriptor second(std::move(first));
        EXPECT_EQ(second.number(), number);
        EXPECT_TRUE(isOpen(number));
    }
    EXPECT_FALSE(isOpen(number));
}

TEST(Descriptor, OfNothingClosesNothing) {
    EXPECT_EQ(Descriptor(-1).number(), -1);
}

TEST(WriteAll, WritesEveryByte) {
    const TemporaryDirectory here;
    const std::string bytes(1000000, 'x');
    {
        const Descriptor file(open("out", O_WRONLY | O_CREAT, 0600));
        EXPECT_TRUE(described::writeAll(file.number(), bytes));
        EXPECT_TRUE(described::writeAll(file.number(), ""));
    }
    EXPECT_EQ(fileBytes("out"), bytes);
}

TEST(WriteAll, TellsThatAWriteFailed) {
    const Descriptor full(open("/dev/full", O_WRONLY));
    EXPECT_FALSE(described::writeAll(full.number(), "x"));
    EXPECT_FALSE(described::writeAll(-1, "x"));
}

}  // namespace
