// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileIdentity.h"

#include "platform/FileKey.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <system_error>

namespace zumeta {

namespace {

int64_t nanoseconds(const struct statx_timestamp& time)
{
    return int64_t(uint64_t(time.tv_sec) * 1'000'000'000U + time.tv_nsec);
}

}

FileIdentity FileIdentity::of(const FileUrl& url)
{
    FileIdentity identity;
    identity.url = url;
    identity.key = fileKey(url); // first: it refuses what is not a readable regular file
    struct statx status = {};
    if (::statx(AT_FDCWD, url.path().c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0)
        throw std::system_error(errno, std::generic_category());
    identity.device = gnu_dev_makedev(status.stx_dev_major, status.stx_dev_minor);
    identity.inode = status.stx_ino;
    identity.size = int64_t(status.stx_size);
    identity.modifiedNanoseconds = nanoseconds(status.stx_mtime);
    if ((status.stx_mask & STATX_BTIME) != 0)
        identity.birthNanoseconds = nanoseconds(status.stx_btime);
    return identity;
}

bool FileIdentity::isSameFileAs(const FileIdentity& other) const
{
    return device == other.device && inode == other.inode && birthNanoseconds == other.birthNanoseconds;
}

}
