// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zumeta {

namespace {

[[noreturn]] void throwErrorNumber(int number)
{
    throw std::system_error(number, std::generic_category());
}

}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    if (this != &other) {
        close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
    }
    return *this;
}

int FileDescriptor::close()
{
    if (m_descriptor < 0)
        return 0;
    // Never repeated after EINTR: on Linux the descriptor is gone either way and may already be someone else's.
    const int result = ::close(std::exchange(m_descriptor, -1));
    return result == 0 || errno == EINTR ? 0 : errno;
}

FileDescriptor openForReading(const FileUrl& url)
{
    // Without O_NONBLOCK, opening a pipe that nobody writes to would never return.
    FileDescriptor file(::open(url.path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.isOpen())
        throwErrorNumber(errno);
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0)
        throwErrorNumber(errno);
    if (!S_ISREG(status.st_mode))
        throwErrorNumber(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    return file;
}

int64_t fileLength(const FileDescriptor& file)
{
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0)
        throwErrorNumber(errno);
    return status.st_size;
}

QByteArray readUpTo(const FileDescriptor& file, qsizetype limit)
{
    // No more than the file says it holds is set aside, and one byte to see whether it has grown meanwhile.
    QByteArray bytes;
    qsizetype step = std::min<qsizetype>(limit, qsizetype(std::max<int64_t>(fileLength(file), 0)) + 1);
    while (bytes.size() < limit) {
        const qsizetype start = bytes.size();
        step = std::min(step, limit - start);
        bytes.resize(start + step);
        const ssize_t got = ::read(file.get(), bytes.data() + start, size_t(step));
        bytes.resize(start + std::max<qsizetype>(got, 0));
        if (got < 0 && errno != EINTR)
            throwErrorNumber(errno);
        if (got == 0)
            break;
    }
    return bytes;
}

}
