// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileBytes.h"
#include "support/TemporaryFolder.h"

#include <QByteArray>

namespace zumeta::test {

/// A temporary folder with files written by bytes.
class FileSandbox : public TemporaryFolder {
public:
    /// Writes a file, making the folders on the way.
    FileUrl write(std::string_view name, const QByteArray& bytes) const
    {
        FileUrl written = url(name);
        std::filesystem::create_directories(written.path().parent_path());
        replaceFileBytes(written, bytes);
        return written;
    }
};

}
