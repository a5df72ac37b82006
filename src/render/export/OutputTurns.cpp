// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/OutputTurns.h"

#include <map>
#include <sys/stat.h>
#include <utility>

namespace zumeta {

namespace {

using FolderIdentity = std::pair<dev_t, ino_t>;

/// One mutex for a folder, whatever it is called, for as long as somebody has it.
std::shared_ptr<std::mutex> mutexOf(const FolderIdentity& folder)
{
    static std::mutex mutex;
    static std::map<FolderIdentity, std::weak_ptr<std::mutex>> mutexes;
    const std::lock_guard lock(mutex);
    std::erase_if(mutexes, [](const auto& entry) { return entry.second.expired(); });
    std::weak_ptr<std::mutex>& known = mutexes[folder];
    std::shared_ptr<std::mutex> found = known.lock();
    if (!found)
        known = found = std::make_shared<std::mutex>();
    return found;
}

}

OutputTurns::OutputTurns(const FileUrl& output)
{
    const std::filesystem::path folder = output.path().parent_path();
    struct stat facts {};
    const bool isThere = ::stat(folder.c_str(), &facts) == 0;
    // Without a folder no file can be made, and there is nothing to take turns at.
    m_mutex = isThere ? mutexOf({facts.st_dev, facts.st_ino}) : std::make_shared<std::mutex>();
}

}
