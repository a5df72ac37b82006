// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <cstdint>

namespace zumeta {

/// Identifies a recording by its head and its length, so that many gigabytes need no complete read: SHA-256 over the
/// first mebibyte and the length as eight little-endian bytes, as 64 lower-case hexadecimal digits. Files that agree in
/// both count as the same file, wherever they lie. Throws std::system_error when the file cannot be read.
QByteArray fileKey(const FileUrl& url);

/// The key that the file would have were it `length` bytes long: equal to its earlier key when it has grown, or lost of
/// its end, since it was that long, and begins as it did.
QByteArray fileKeyOfLength(const FileUrl& url, int64_t length);

}
