// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileToBe.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zumeta {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".zumeta-";
constexpr std::string_view kSuffix = ".part";

[[noreturn]] void throwErrorNumber(int number)
{
    throw std::system_error(number, std::generic_category());
}

bool isPassingName(std::string_view name)
{
    if (name.size() <= kPrefix.size() + kSuffix.size() || !name.starts_with(kPrefix) || !name.ends_with(kSuffix))
        return false;
    const std::string_view number = name.substr(kPrefix.size(), name.size() - kPrefix.size() - kSuffix.size());
    return std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void removeIfAbandoned(const fs::path& path)
{
    // A link is not followed and a pipe not waited for. Locks on files of other machines want them open for writing.
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0)
        return;
    ::unlink(path.c_str());
}

}

FileToBe::FileToBe(const fs::path& folder)
{
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        m_path = folder / (std::string(kPrefix) + std::to_string(random()) + std::string(kSuffix));
        m_file = FileDescriptor(::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (!m_file.isOpen() && errno != EEXIST && errno != EINTR)
            throwErrorNumber(errno);
        if (!m_file.isOpen())
            continue;
        if (lock() != Lock::lost)
            return;
        ::unlink(m_path.c_str());
        m_file.close();
    }
    throwErrorNumber(EEXIST);
}

FileToBe::~FileToBe()
{
    if (!m_isInPlace)
        ::unlink(m_path.c_str());
}

FileToBe::Lock FileToBe::lock() const
{
    // Another process may clear the folder between the making and the lock: it then holds the lock, or has held it and
    // the file has no name any more.
    if (::flock(m_file.get(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Lock::lost : Lock::notOffered;
    struct stat status = {};
    return ::fstat(m_file.get(), &status) == 0 && status.st_nlink == 0 ? Lock::lost : Lock::held;
}

void FileToBe::write(const QByteArray& bytes) const
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(m_file.get(), bytes.constData() + written, size_t(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            throwErrorNumber(errno);
        written += std::max<ssize_t>(count, 0);
    }
}

void FileToBe::takePermissions(mode_t mode) const
{
    if (::fchmod(m_file.get(), mode & 07777) != 0)
        throwErrorNumber(errno);
}

void FileToBe::moveTo(const fs::path& target)
{
    // On disk before the name changes hands, so that a power cut cannot leave an empty file under the old name.
    int result = 0;
    do {
        result = ::fsync(m_file.get());
    } while (result != 0 && errno == EINTR);
    if (result != 0 && errno != EINVAL && errno != ENOTSUP)
        throwErrorNumber(errno);
    // Closed before the name changes hands as well, since some file systems tell only then that the bytes did not
    // arrive. The second descriptor keeps the lock up to the renaming.
    const FileDescriptor lock(::fcntl(m_file.get(), F_DUPFD_CLOEXEC, 0));
    if (const int error = m_file.close(); error != 0)
        throwErrorNumber(error);
    if (std::rename(m_path.c_str(), target.c_str()) != 0)
        throwErrorNumber(errno);
    m_isInPlace = true;
}

void FileToBe::removeAbandoned(const fs::path& folder)
{
    // A folder of very many files is not worth the wait: what is left in it is small and harmless.
    int entriesLeft = 10'000;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator() && entriesLeft > 0;
         entry.increment(error), --entriesLeft) {
        if (isPassingName(entry->path().filename().native()))
            removeIfAbandoned(entry->path());
    }
}

}
