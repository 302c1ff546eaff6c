#include "runtime/host/described/console_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "tests/files.h"
#include "tests/runtime/host/description/machine_fixture.h"

namespace {

/// A descriptor, closed in the end.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) { EXPECT_GE(number, 0); }
    ~Descriptor() { close(m_number); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return m_number; }

private:
    int m_number;
};

Descriptor newFile(const char* name) {
    return Descriptor(open(name, O_WRONLY | O_CREAT | O_TRUNC, 0600));
}

}  // namespace

TEST(OutputStream, CollectsBlocksForAFile) {
    const TemporaryDirectory here;
    const Descriptor file = newFile("out");
    described::OutputStream stream(file);
    EXPECT_TRUE(stream.write(L"\u20AC\r\n"));
    EXPECT_EQ(std::filesystem::file_size("out"), 0U);
    EXPECT_TRUE(stream.write(std::wstring(described::OutputStream::blockSize, L'x')));
    const auto soFar = std::filesystem::file_size("out");
    EXPECT_GT(soFar, 0U);
    EXPECT_LE(soFar, described::OutputStream::blockSize);
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(std::filesystem::file_size("out"), 5U + described::OutputStream::blockSize);
    EXPECT_TRUE(stream.flush());
}

TEST(OutputStream, TriesNothingMoreAfterAFailure) {
    const Descriptor full(open("/dev/full", O_WRONLY));
    described::OutputStream stream(full);
    EXPECT_TRUE(stream.write(L"a"));
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(stream.write(L"b"));
    EXPECT_FALSE(stream.flush());
    EXPECT_FALSE(stream.write(std::wstring(3 * described::OutputStream::blockSize, L'x')));
}

TEST(OutputStream, AReaderThatLeftIsAFailure) {
    std::signal(SIGPIPE, SIG_IGN);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    close(ends[0]);
    const Descriptor writing(ends[1]);
    described::OutputStream stream(writing);
    EXPECT_TRUE(stream.write(L"a"));
    EXPECT_FALSE(stream.flush());
}

TEST(OutputStream, WaitsForASlowReaderThatDoesNotBlock) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    const Descriptor reading(ends[0]);
    std::size_t received = 0;
    constexpr std::size_t size = 1000000;
    std::thread reader([&] {
        char block[4096];
        while (received < size) {
            const ssize_t count = read(reading, block, sizeof block);
            if (count > 0) received += static_cast<std::size_t>(count);
        }
    });
    const Descriptor writing(ends[1]);
    described::OutputStream stream(writing);
    EXPECT_TRUE(stream.write(std::wstring(size, L'x')));
    EXPECT_TRUE(stream.flush());
    reader.join();
    EXPECT_EQ(received, size);
}

TEST(OutputStream, WritesToATerminalAtOnce) {
    const Descriptor terminal(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_EQ(grantpt(terminal), 0);
    ASSERT_EQ(unlockpt(terminal), 0);
    const Descriptor screen(open(ptsname(terminal), O_RDWR | O_NOCTTY));
    described::OutputStream stream(screen);
    EXPECT_TRUE(stream.write(L"h\u00E9"));
    char block[16];
    const ssize_t count = read(terminal, block, sizeof block);
    EXPECT_EQ(std::string(block, static_cast<std::size_t>(std::max<ssize_t>(count, 0))), "h\xC3\xA9");
}
