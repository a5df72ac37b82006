// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace zumeta::test {

/// A folder of its own that goes away with everything in it, whatever rights a test left on it.
class TemporaryFolder {
public:
    TemporaryFolder();
    /// In a folder that is there, such as one of another disk.
    explicit TemporaryFolder(const std::filesystem::path& parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete; // it stands for one folder on disk
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path file(std::string_view name) const { return m_path / name; }
    FileUrl url(std::string_view name) const { return FileUrl(file(name)); }
    /// Names of what lies in it, sorted.
    std::vector<std::string> names() const;

private:
    std::filesystem::path m_path;
};

}
