// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileBytes.h"

#include "platform/FileDescriptor.h"
#include "platform/FileToBe.h"

#include <cerrno>
#include <fcntl.h>
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
    if (!replaces && errno != ENOENT) // what cannot be looked at may be there, protected
        throwErrorNumber(errno);
    if (replaces && !S_ISREG(status.st_mode))
        throwErrorNumber(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    // Renaming asks only for rights on the folder; a file that its owner protected stays as it is.
    if (replaces && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        throwErrorNumber(errno);

    // Before anything is written: on a full disk this may be the room that is needed.
    FileToBe::removeAbandoned(target.parent_path());
    FileToBe file(target.parent_path());
    if (replaces)
        file.takePermissions(status.st_mode);
    file.write(bytes);
    file.moveTo(target);
}

}
