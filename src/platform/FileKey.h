// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

namespace zumeta {

/// Identifies a recording by its head and its length, so that many gigabytes need no complete read: SHA-256 over the
/// first mebibyte and the length as eight little-endian bytes, as 64 lower-case hexadecimal digits. Files that agree in
/// both count as the same file, wherever they lie. Throws std::system_error when the file cannot be read.
QByteArray fileKey(const FileUrl& url);

}
