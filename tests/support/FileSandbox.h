// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileBytes.h"
#include "platform/FileUrl.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace zumeta::test {

/// A folder of its own for one test, with files written by bytes; removed with all it holds.
class FileSandbox {
public:
    FileSandbox()
    {
        std::string name = (std::filesystem::temp_directory_path() / "zumeta-test-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::system_error(errno, std::generic_category());
        m_path = name;
    }
    ~FileSandbox()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    FileSandbox(const FileSandbox&) = delete; // it stands for one folder on disk
    FileSandbox& operator=(const FileSandbox&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    FileUrl url(std::string_view name) const { return FileUrl(m_path / name); }
    /// Writes a file, making the folders on the way.
    FileUrl write(std::string_view name, const QByteArray& bytes) const
    {
        FileUrl file = url(name);
        std::filesystem::create_directories(file.path().parent_path());
        replaceFileBytes(file, bytes);
        return file;
    }

private:
    std::filesystem::path m_path;
};

}
