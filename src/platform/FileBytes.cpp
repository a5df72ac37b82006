// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileBytes.h"

#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zumeta {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void throwErrorNumber(int number)
{
    throw std::system_error(number, std::generic_category());
}

/// A new file beside the one that it will replace; gone again unless it took that place. QSaveFile does the same, but
/// only for names that are valid UTF-8.
class FileToBe {
public:
    explicit FileToBe(const fs::path& folder)
    {
        std::random_device random;
        for (int attempt = 0; attempt < 100 && !m_file.isOpen(); ++attempt) {
            m_path = folder / (".zumeta-" + std::to_string(random()) + ".part");
            m_file = FileDescriptor(::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
            if (!m_file.isOpen() && errno != EEXIST)
                throwErrorNumber(errno);
        }
        if (!m_file.isOpen())
            throwErrorNumber(EEXIST);
    }
    ~FileToBe()
    {
        if (!m_inPlace)
            ::unlink(m_path.c_str());
    }
    FileToBe(const FileToBe&) = delete; // it stands for one file on disk
    FileToBe& operator=(const FileToBe&) = delete;

    void write(const QByteArray& bytes) const
    {
        qsizetype written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(m_file.get(), bytes.constData() + written, size_t(bytes.size() - written));
            if (count < 0 && errno != EINTR)
                throwErrorNumber(errno);
            written += count > 0 ? count : 0;
        }
    }

    void takePermissions(mode_t mode) const
    {
        if (::fchmod(m_file.get(), mode & 07777) != 0)
            throwErrorNumber(errno);
    }

    void moveTo(const fs::path& target)
    {
        // On disk before the name changes hands, so that a power cut cannot leave an empty file under the old name.
        if (::fsync(m_file.get()) != 0 && errno != EINVAL && errno != ENOTSUP)
            throwErrorNumber(errno);
        if (const int error = m_file.close(); error != 0)
            throwErrorNumber(error);
        if (std::rename(m_path.c_str(), target.c_str()) != 0)
            throwErrorNumber(errno);
        m_inPlace = true;
    }

private:
    fs::path m_path;
    FileDescriptor m_file;
    bool m_inPlace = false;
};

fs::path behindLinks(const fs::path& path)
{
    std::error_code error;
    if (!fs::is_symlink(path, error))
        return path;
    const fs::path target = fs::canonical(path, error);
    return error ? path : target;
}

}

QByteArray readFileBytes(const FileUrl& url, qsizetype limit)
{
    QByteArray bytes = readUpTo(openForReading(url), limit + 1);
    if (bytes.size() > limit)
        throwErrorNumber(EFBIG);
    return bytes;
}

void replaceFileBytes(const FileUrl& url, const QByteArray& bytes)
{
    const fs::path target = behindLinks(url.path());
    struct stat status = {};
    const bool replaces = ::stat(target.c_str(), &status) == 0;
    if (replaces && !S_ISREG(status.st_mode))
        throwErrorNumber(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    // Renaming asks only for rights on the folder; a file that its owner protected stays as it is.
    if (replaces && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        throwErrorNumber(errno);

    FileToBe file(target.parent_path());
    if (replaces)
        file.takePermissions(status.st_mode);
    file.write(bytes);
    file.moveTo(target);
}

}
