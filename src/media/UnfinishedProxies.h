// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileDescriptor.h"
#include "platform/FileUrl.h"

#include <mutex>

namespace zumeta {

/// Where proxies are written until they are whole: a folder beside the finished ones, on the same file system, so that
/// renaming puts them in their place in one step. Each object works in a folder of its own under a lock that the system
/// releases when the process ends, however it ends; so what others left is told from what they still write.
/// Every function may be called by any thread, and throws std::system_error where it cannot do its work.
class UnfinishedProxies {
public:
    explicit UnfinishedProxies(std::filesystem::path folder);
    /// Removes its own folder with all that is left in it.
    ~UnfinishedProxies();
    UnfinishedProxies(const UnfinishedProxies&) = delete; // it stands for one folder on disk
    UnfinishedProxies& operator=(const UnfinishedProxies&) = delete;

    /// Removes what ended processes left behind. What cannot be removed stays, without a word.
    void clearAbandoned();
    /// The place for a new file of this name; what stood there is removed.
    FileUrl place(const std::string& name);
    /// Puts a whole file from here to where it belongs. It is on the disk before it bears its name.
    static void publish(const FileUrl& unfinished, const FileUrl& finished);

private:
    void makeOwnFolder();

    const std::filesystem::path m_folder;
    std::mutex m_mutex;
    std::filesystem::path m_own; ///< empty until it is needed
    FileDescriptor m_ownLock;
};

}
