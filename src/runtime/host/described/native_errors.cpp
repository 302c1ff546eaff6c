#include "runtime/host/described/native_errors.h"

#include <cerrno>

#include "runtime/host/description/scanner.h"

namespace described {

namespace {

struct Pair {
    int error;
    std::uint32_t code;
};

constexpr std::uint32_t generalFailure = 31;

constexpr Pair pairs[] = {
    {ENOENT, 2},   {ENOTDIR, 3},   {EMFILE, 4},      {ENFILE, 4},         {EACCES, 5},
    {EPERM, 5},    {EISDIR, 5},    {EBADF, 6},       {ENOMEM, 8},         {EXDEV, 17},
    {EROFS, 19},   {ETXTBSY, 32},  {EIO, 1117},      {EBUSY, 170},        {EEXIST, 183},
    {ENOSPC, 112}, {EDQUOT, 1816}, {EFBIG, 223},     {ENAMETOOLONG, 206}, {EINVAL, 87},
    {EPIPE, 109},  {ELOOP, 1921},  {ENOTEMPTY, 145}, {ENXIO, 21},         {EINTR, 995},
};

}  // namespace

std::uint32_t windowsCodeOf(int error) {
    for (const Pair& pair : pairs) {
        if (pair.error == error) return pair.code;
    }
    return generalFailure;
}

description::Cause nativeCause(int error) {
    return description::causeOf(windowsCodeOf(error));
}

}  // namespace described
