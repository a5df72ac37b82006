// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileDescriptor.h"
#include "platform/FileUrl.h"

#include <vector>

namespace zumeta {

/// The right to read a file for as long as it is worked with. Main thread.
class FileAccess {
public:
    FileAccess() = default;
    virtual ~FileAccess() = default;
    FileAccess(const FileAccess&) = delete; // an interface: copying would slice
    FileAccess& operator=(const FileAccess&) = delete;

    /// False when the file cannot be read.
    virtual bool startAccessing(const FileUrl& url) = 0;
    virtual void stopAccessing(const FileUrl& url) = 0;
};

/// Access to one file for as long as this lives. The giver must outlive it.
class ScopedFileAccess {
public:
    ScopedFileAccess(FileAccess& access, FileUrl url)
        : m_access(access)
        , m_url(std::move(url))
        , m_isOpen(access.startAccessing(m_url))
    {}
    ~ScopedFileAccess()
    {
        if (m_isOpen)
            m_access.stopAccessing(m_url);
    }
    ScopedFileAccess(const ScopedFileAccess&) = delete; // it stands for one access that is held
    ScopedFileAccess& operator=(const ScopedFileAccess&) = delete;

private:
    FileAccess& m_access;
    FileUrl m_url;
    bool m_isOpen;
};

/// Holds the files open, so that one on a removable disk keeps the disk from being taken away unnoticed.
class OpenFileAccess final : public FileAccess {
public:
    bool startAccessing(const FileUrl& url) override;
    void stopAccessing(const FileUrl& url) override;

private:
    struct Held {
        FileUrl url;
        FileDescriptor descriptor;
    };
    std::vector<Held> m_held;
};

}
