// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/UnfinishedProxies.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace zumeta {

namespace {

constexpr char kLockName[] = "lock";

[[noreturn]] void throwError(int number)
{
    throw std::system_error(number, std::generic_category());
}

FileDescriptor openLock(const std::filesystem::path& file, int flags)
{
    return FileDescriptor(::open(file.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600));
}

/// Held while folders are made and cleared, so that none is taken for abandoned before it is locked.
FileDescriptor lockAll(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    FileDescriptor lock = openLock(folder / kLockName, O_CREAT);
    if (!lock.isOpen())
        throwError(errno);
    // A file system without locks clears nothing, and loses nothing either.
    while (::flock(lock.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
    return lock;
}

bool isAbandoned(const std::filesystem::path& folder)
{
    const FileDescriptor lock = openLock(folder / kLockName, 0);
    if (!lock.isOpen())
        return errno == ENOENT; // its process ended between making the folder and the lock
    return ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0;
}

/// Zero, or the error number.
int synchronize(const std::filesystem::path& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.isOpen() && ::fsync(file.get()) == 0 ? 0 : errno;
}

}

UnfinishedProxies::UnfinishedProxies(std::filesystem::path folder)
    : m_folder(std::move(folder))
{}

UnfinishedProxies::~UnfinishedProxies()
{
    std::error_code ignored;
    if (!m_own.empty())
        std::filesystem::remove_all(m_own, ignored);
}

void UnfinishedProxies::clearAbandoned()
{
    const std::lock_guard lock(m_mutex);
    if (!std::filesystem::is_directory(m_folder))
        return;
    const FileDescriptor all = lockAll(m_folder);
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(m_folder)) {
        std::error_code ignored;
        if (entry.path() != m_own && entry.is_directory(ignored) && !entry.is_symlink(ignored) &&
            isAbandoned(entry.path()))
            std::filesystem::remove_all(entry.path(), ignored);
    }
}

void UnfinishedProxies::makeOwnFolder()
{
    const FileDescriptor all = lockAll(m_folder);
    std::string name = (m_folder / "XXXXXX").native();
    if (::mkdtemp(name.data()) == nullptr)
        throwError(errno);
    m_own = name;
    m_ownLock = openLock(m_own / kLockName, O_CREAT);
    if (!m_ownLock.isOpen())
        throwError(errno);
    ::flock(m_ownLock.get(), LOCK_EX | LOCK_NB);
}

FileUrl UnfinishedProxies::place(const std::string& name)
{
    const std::lock_guard lock(m_mutex);
    // Somebody may have cleaned up by hand since.
    if (m_own.empty() || !std::filesystem::is_directory(m_own))
        makeOwnFolder();
    const FileUrl file(m_own / name);
    std::filesystem::remove(file.path());
    return file;
}

void UnfinishedProxies::publish(const FileUrl& unfinished, const FileUrl& finished)
{
    if (const int error = synchronize(unfinished.path()); error != 0 && error != EINVAL)
        throwError(error);
    std::filesystem::create_directories(finished.path().parent_path());
    std::filesystem::rename(unfinished.path(), finished.path());
    // Without it a power cut may cost the name, and with it a proxy that can be made again.
    synchronize(finished.path().parent_path());
}

}
