// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zumeta {

namespace {

constexpr int kBufferBytes = 256 * 1024;
constexpr mode_t kPermissions = 0666; // the user's mask takes away what it does not want

std::string systemText(int error)
{
    return std::generic_category().message(error);
}

/// Why a new file could not be made. The system names the file as missing when its folder is.
std::string reasonOf(int error)
{
    return error == ENOENT ? "its folder does not exist" : systemText(error);
}

}

void OutputFile::FreesContext::operator()(AVIOContext* context) const noexcept
{
    av_freep(static_cast<void*>(&context->buffer));
    avio_context_free(&context);
}

OutputFile::OutputFile(const FileUrl& file)
    : m_url(file)
{
    m_descriptor = ::open(file.path().c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kPermissions);
    if (m_descriptor < 0)
        throw MovieError(MovieError::Kind::cannotWrite,
                         file.lastPathComponent() + " cannot be written: " + reasonOf(errno));
    struct stat facts {};
    ::fstat(m_descriptor, &facts);
    m_device = facts.st_dev;
    m_inode = facts.st_ino;
    auto* const buffer = static_cast<uint8_t*>(checkAllocated(av_malloc(kBufferBytes)));
    m_context.reset(checkAllocated(avio_alloc_context(buffer, kBufferBytes, 1, this, nullptr, write, seek)));
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

int OutputFile::write(void* self, uint8_t* bytes, int count)
{
    auto* const file = static_cast<OutputFile*>(self);
    int written = 0;
    while (written < count) {
        const ssize_t n = ::write(file->m_descriptor, bytes + written, size_t(count - written));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            file->m_error = n < 0 ? errno : EIO;
            return AVERROR(file->m_error);
        }
        written += int(n);
    }
    return count;
}

int64_t OutputFile::seek(void* self, int64_t offset, int whence)
{
    const auto* const file = static_cast<const OutputFile*>(self);
    if (whence == AVSEEK_SIZE) {
        struct stat facts {};
        return ::fstat(file->m_descriptor, &facts) == 0 ? facts.st_size : AVERROR(errno);
    }
    const off_t place = ::lseek(file->m_descriptor, offset, whence & ~AVSEEK_FORCE);
    return place < 0 ? AVERROR(errno) : place;
}

std::string OutputFile::failure() const
{
    return m_error != 0 ? systemText(m_error) : std::string();
}

void OutputFile::close()
{
    avio_flush(m_context.get());
    // Closing a copy tells of writes that fail late. The file itself stays open while this object lives, so that no
    // other file comes to have its inode, by which remove() knows it.
    const int copy = m_error == 0 ? ::dup(m_descriptor) : -1;
    if (m_error == 0 && (copy < 0 || ::close(copy) != 0))
        m_error = errno;
    if (m_error != 0)
        throw MovieError(MovieError::Kind::cannotWrite, failure());
}

void OutputFile::remove() noexcept
{
    struct stat facts {};
    if (::lstat(m_url.path().c_str(), &facts) == 0 && facts.st_dev == m_device && facts.st_ino == m_inode)
        ::unlink(m_url.path().c_str());
}

}
