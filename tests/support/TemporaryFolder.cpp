// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace zumeta::test {

TemporaryFolder::TemporaryFolder()
    : TemporaryFolder(std::filesystem::temp_directory_path())
{}

TemporaryFolder::TemporaryFolder(const std::filesystem::path& parent)
{
    std::string name = (parent / "zumeta-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder could be made");
    m_path = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored; // a folder that cannot be removed must not hide the test's own result
    for (auto entry = std::filesystem::recursive_directory_iterator(m_path, ignored);
         !ignored && entry != std::filesystem::recursive_directory_iterator(); entry.increment(ignored)) {
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            std::filesystem::permissions(entry->path(), std::filesystem::perms::owner_all, ignored);
    }
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::string> TemporaryFolder::names() const
{
    std::vector<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        result.push_back(entry.path().filename().string());
    std::sort(result.begin(), result.end());
    return result;
}

}
