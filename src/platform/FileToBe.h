// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileDescriptor.h"

#include <filesystem>
#include <sys/types.h>

namespace zumeta {

/// A new file beside the one that it will replace; gone again unless it took that place. QSaveFile does the same, but
/// only for names that are valid UTF-8. What fails throws std::system_error.
///
/// It is locked for as long as it has its passing name: by that, what a killed process left behind is told from what
/// another one is just writing.
class FileToBe {
public:
    explicit FileToBe(const std::filesystem::path& folder);
    ~FileToBe();
    FileToBe(const FileToBe&) = delete; // it stands for one file on disk
    FileToBe& operator=(const FileToBe&) = delete;

    void write(const QByteArray& bytes) const;
    void takePermissions(mode_t mode) const;
    /// Once, at the end.
    void moveTo(const std::filesystem::path& target);

    /// Removes what killed processes of this user left in the folder. It does what it can and says nothing: a file that
    /// somebody writes, or that is not plainly ours, stays. Where the file system has no locks everything stays.
    static void removeAbandoned(const std::filesystem::path& folder);

private:
    enum class Lock { held, notOffered, lost };
    Lock lock() const;

    std::filesystem::path m_path;
    FileDescriptor m_file;
    bool m_isInPlace = false;
};

}
