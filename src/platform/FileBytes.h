// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

namespace zumeta {

/// A whole file. Throws std::system_error, also when the file is longer than `limit` bytes.
QByteArray readFileBytes(const FileUrl& url, qsizetype limit);

/// Puts a whole file in place of what is there, or where nothing is. At every moment the name stands for the old bytes
/// or the new ones, never for a part; after a failure it stands for the old ones and nothing is left beside them. What
/// a process left beside them that was killed while it did this is removed. A symbolic link stays and its target is
/// replaced; the permissions of a replaced file stay. Throws std::system_error.
void replaceFileBytes(const FileUrl& url, const QByteArray& bytes);

}
