// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <csignal>
#include <sys/resource.h>

namespace zumeta::test {

/// While it lives, no file of this process grows past `bytes`: writing fails as it does on a full disk, without
/// rights to mount one.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limited{bytes, m_old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete; // it stands for the process's one limit
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

}
