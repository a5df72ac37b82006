// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FaultyCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>

namespace zumeta::test {

namespace {

thread_local FaultyCalls* current = nullptr;

}

FaultyCalls::FaultyCalls(const Plan& plan)
    : m_plan(plan)
{
    current = this;
}

FaultyCalls::~FaultyCalls()
{
    current = nullptr;
}

bool FaultyCalls::fails(const char* kind)
{
    if (!current)
        return false;
    const Plan& plan = current->m_plan;
    std::vector<std::string>& calls = current->m_calls;
    calls.emplace_back(kind);
    const auto failing = size_t(plan.failingCall);
    const bool isIt = plan.failingCall > 0 && calls.size() == failing;
    const bool isLater =
        plan.staysBroken && plan.failingCall > 0 && calls.size() > failing && calls[failing - 1] == calls.back();
    if (isIt || isLater)
        errno = plan.error;
    return isIt || isLater;
}

size_t FaultyCalls::writable(size_t count)
{
    return current ? std::min(count, current->m_plan.largestWrite) : count;
}

}

// The linker leads the calls of everything that is linked statically through these (--wrap), the C library's own and
// those of shared libraries not.
// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
using zumeta::test::FaultyCalls;

extern "C" {

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return FaultyCalls::fails("open") ? -1 : __real_open(path, flags, mode);
}

ssize_t __real_write(int descriptor, const void* bytes, size_t count);
ssize_t __wrap_write(int descriptor, const void* bytes, size_t count)
{
    return FaultyCalls::fails("write") ? -1 : __real_write(descriptor, bytes, FaultyCalls::writable(count));
}

int __real_close(int descriptor);
int __wrap_close(int descriptor)
{
    // A close that fails closes all the same.
    const int result = __real_close(descriptor);
    return FaultyCalls::fails("close") ? -1 : result;
}

int __real_fsync(int descriptor);
int __wrap_fsync(int descriptor)
{
    return FaultyCalls::fails("fsync") ? -1 : __real_fsync(descriptor);
}

int __real_fchmod(int descriptor, mode_t mode);
int __wrap_fchmod(int descriptor, mode_t mode)
{
    return FaultyCalls::fails("fchmod") ? -1 : __real_fchmod(descriptor, mode);
}

int __real_flock(int descriptor, int operation);
int __wrap_flock(int descriptor, int operation)
{
    return FaultyCalls::fails("flock") ? -1 : __real_flock(descriptor, operation);
}

int __real_stat(const char* path, struct stat* status);
int __wrap_stat(const char* path, struct stat* status)
{
    return FaultyCalls::fails("stat") ? -1 : __real_stat(path, status);
}

int __real_fstat(int descriptor, struct stat* status);
int __wrap_fstat(int descriptor, struct stat* status)
{
    return FaultyCalls::fails("fstat") ? -1 : __real_fstat(descriptor, status);
}

int __real_faccessat(int folder, const char* path, int mode, int flags);
int __wrap_faccessat(int folder, const char* path, int mode, int flags)
{
    return FaultyCalls::fails("faccessat") ? -1 : __real_faccessat(folder, path, mode, flags);
}

int __real_fcntl(int descriptor, int command, ...);
int __wrap_fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    return FaultyCalls::fails("fcntl") ? -1 : __real_fcntl(descriptor, command, argument);
}

int __real_rename(const char* from, const char* to);
int __wrap_rename(const char* from, const char* to)
{
    return FaultyCalls::fails("rename") ? -1 : __real_rename(from, to);
}
}
// NOLINTEND(bugprone-reserved-identifier)
