// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <cstdint>
#include <utility>

namespace zumeta {

/// An open file that closes itself. Files are opened by descriptor wherever a name may not be UTF-8: QFile's names are
/// UTF-16, and converting a foreign name to it and back loses it.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {}
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete; // one owner closes
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int get() const { return m_descriptor; }
    bool isOpen() const { return m_descriptor >= 0; }
    /// Zero, or the error number that closing gave.
    int close();

private:
    int m_descriptor = -1;
};

/// Opens a regular file for reading. Throws std::system_error; anything but a regular file is an error, and a pipe is
/// refused instead of waited for.
FileDescriptor openForReading(const FileUrl& url);

/// The length of an open file in bytes. Throws std::system_error.
int64_t fileLength(const FileDescriptor& file);

/// Up to `limit` bytes from where the file stands; fewer only at its end. Throws std::system_error.
QByteArray readUpTo(const FileDescriptor& file, qsizetype limit);

}
